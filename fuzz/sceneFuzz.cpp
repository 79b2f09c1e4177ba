// Any bytes are a scene file, with a second one beside it that it may name: the host opens it and lets it
// play, or refuses it in one line and keeps what was open. The check of scene files runs as in the host, in
// its own process; what that survives, or what our own reading refuses, must not end this one. The reader's
// library is not instrumented.
#include "fuzz/Bytes.h"
#include "fuzz/Expect.h"
#include "fuzz/SceneWriter.h"
#include "host/app/Report.h"
#include "host/app/Session.h"
#include "host/vrml/SceneGuard.h"

#include <kt/ktController.h>
#include <osg/Edit.h>

#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>

#ifdef KT_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

using namespace kthost;
using kt::fuzz::expect;

/// Parts the scene from the file beside it, b.wrl.
constexpr char separator = '\x1E';

/// Behind a control character there is a description of the text, otherwise the text itself.
std::string textOf(const std::uint8_t* data, std::size_t size)
{
    kt::fuzz::Bytes bytes(data, size);
    if (size == 0 || *data >= 0x20)
        return bytes.rest();
    bytes.byte();
    return kt::fuzz::SceneWriter::write(bytes);
}

ReadLimits shortLimits()
{
    ReadLimits limits;
    limits.seconds = 2.0;
    return limits;
}

/// The host without a window, once for all inputs.
class Host
{
public:
    Host() { _session.setGuard(&_guard); }

    void write(const char* name, const std::string& text) const
    {
        std::ofstream(path(name), std::ios::binary) << "#VRML V2.0 utf8\n" << text;
    }

    /// False where it is refused.
    bool open(const char* name)
    {
        const QString before = _session.file();
        try {
            _session.open(QString::fromStdString(path(name)));
        } catch (const HostError& error) {
            const std::string line = error.what();
            expect(error.status() == ExitStatus::BadFile && line.rfind(path(name), 0) == 0,
                   "the file and what is wrong");
            expect(_session.file() == before, "what was open stays open");
            return false;
        }
        return true;
    }

    /// Runs every sensor of the scene over its end, as no scene's clock of its own would.
    void play()
    {
        FrameLoop& frames = _session.frames();
        advance(0.0);
        advance(0.04);
        for (const SceneSensor& entry : std::vector<SceneSensor>(frames.sensors()))
            start(*entry.sensor);
        for (const double seconds : {0.04, 0.5, 3.0, 1000.0})
            advance(seconds);
        for (const SceneSensor& entry : frames.sensors()) {
            const std::string line = sensorAsJson(entry);
            expect(QJsonDocument::fromJson(QByteArray::fromStdString(line)).isObject(),
                   "a sensor is told of");
        }
    }

    void close() { _session.close(); }

private:
    std::string path(const char* name) const
    {
        return (_folder.path() + QLatin1Char('/')).toStdString() + name;
    }

    static void start(osg::TimeSensor& sensor)
    {
        sensor.setTime(ktController::getSimulationTime());
        sensor.setStartTime(ktController::getSimulationTime());
        sensor.setActive(true);
        sensor.setStop(false);
        osg::endEdit(osg::FieldContainerPtr(&sensor),
                     osg::TimeSensorBase::TimeFieldMask | osg::TimeSensorBase::IsActiveFieldMask |
                         osg::TimeSensorBase::StartTimeFieldMask | osg::TimeSensorBase::StopFieldMask);
    }

    void advance(double seconds) { _session.frames().advanceTo(ktController::getSimulationTime() + seconds); }

    QTemporaryDir _folder;
    SceneGuard _guard{KT_SCENE_CHECK, shortLimits()};
    Session _session;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
#ifdef KT_LOOKS_FOR_LEAKS
    // The reader's library loses nodes of a text that breaks off, and those that stand inside themselves.
    const __lsan::ScopedDisabler notOurs;
#endif
    static auto* const host = new Host; // the library does not like its end at the process's
    const std::string text = textOf(data, size);
    const std::size_t end = std::min(text.find(separator), text.size());
    host->write("a.wrl", text.substr(0, end));
    host->write("b.wrl", text.substr(std::min(end + 1, text.size())));
    ktController::setSimulationTime(0.0);
    if (host->open("a.wrl"))
        host->play();
    host->close();
    return 0;
}
