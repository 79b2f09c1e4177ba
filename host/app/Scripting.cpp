#include "host/app/Scripting.h"

#include "host/app/ActionRunner.h"
#include "host/app/HostError.h"
#include "host/app/LiveClock.h"
#include "host/app/Session.h"
#include "host/scripting/Interpreter.h"
#include "host/scripting/ScriptHost.h"

#include <kt/ktLog.h>
#include <kt/ktScript.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace kthost
{
namespace
{

Scripting* current = nullptr;

/// Nothing but the present Scripting can start the interpreter, which then takes over from here.
bool startAndRun(const char* statement)
{
    try {
        return current->interpreter().runStatement(statement).kind == ScriptOutcome::Done;
    } catch (const HostError& error) {
        ktLog::error("%s", error.what());
        return false;
    }
}

std::string whyUnreadable(const QString& file)
{
    if (QFileInfo(file).isDir())
        return "it is a folder";
    return access(QFile::encodeName(file).constData(), R_OK) == 0 ? std::string() : std::strerror(errno);
}

} // namespace

/// What the module ktHost hands on.
class Scripting::Services : public ScriptHost
{
public:
    Services(Session& session, ActionRunner& runner, LiveClock* clock)
        : _session(session), _runner(runner), _clock(clock)
    {
    }

    void open(const QString& file) override { _session.open(file); }
    void save(const QString& file) override { _session.save(file); }

    void advance(double seconds, double framesPerSecond, const std::function<void()>& afterStep) override
    {
        const ClockPause pause(_clock);
        _runner.advance(seconds, framesPerSecond, afterStep);
    }

    void writePicture(const QString& file, const QSize& size) override
    {
        _session.frames().settle();
        _runner.writePicture(file, size);
    }

    std::vector<Sensor> sensors() override
    {
        std::vector<Sensor> all;
        for (const SceneSensor& entry : _session.frames().sensors())
            all.push_back({entry.node, entry.sensor});
        return all;
    }

    bool hasWindow() const { return _clock != nullptr; }

private:
    /// A live clock goes on from where the steps led to, instead of waiting until it is as far.
    class ClockPause
    {
    public:
        explicit ClockPause(LiveClock* clock) : _clock(clock && clock->isRunning() ? clock : nullptr)
        {
            if (_clock)
                _clock->stop();
        }

        ~ClockPause()
        {
            if (_clock)
                _clock->start();
        }

        ClockPause(const ClockPause&) = delete;
        ClockPause& operator=(const ClockPause&) = delete;

    private:
        LiveClock* _clock;
    };

    Session& _session;
    ActionRunner& _runner;
    LiveClock* _clock;
};

Scripting::Scripting(Session& session, ActionRunner& runner, LiveClock* clock)
    : _services(std::make_unique<Services>(session, runner, clock))
{
    current = this;
    runner.setScriptRunner([this](const ScriptAction& action) { run(action); });
    if (isBuilt())
        ktScript::setRunner(startAndRun);
}

Scripting::~Scripting()
{
    QObject::disconnect(_closed);
    _interpreter.reset();
    ktScript::setRunner(nullptr);
    current = nullptr;
}

bool Scripting::isBuilt()
{
    return true;
}

void Scripting::run(const ScriptAction& action)
{
    const std::string file = QFile::encodeName(action.file).toStdString();
    const std::string why = whyUnreadable(action.file);
    if (!why.empty())
        throw HostError(ExitStatus::BadFile, file, why);
    const ScriptOutcome outcome = interpreter().runFile(action.file, action.words);
    if (outcome.kind == ScriptOutcome::Exit)
        throw ScriptExit{outcome.status};
    if (outcome.kind == ScriptOutcome::Failed)
        throw HostError(ExitStatus::ScriptFailed, file, outcome.why);
    if (outcome.kind == ScriptOutcome::Interrupted)
        throw HostError(ExitStatus::Interrupted, file, outcome.why);
}

Interpreter& Scripting::interpreter()
{
    if (!_interpreter)
        startInterpreter();
    _interpreter->announce();
    return *_interpreter;
}

void Scripting::startInterpreter()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    try {
        _interpreter =
            std::make_unique<Interpreter>(*_services, folder.filePath(QStringLiteral(KT_PYTHON_HOME)));
    } catch (const std::exception& error) {
        throw HostError(ExitStatus::ScriptFailed, error.what());
    }
    if (_services->hasWindow()) {
        _interpreter->setIdleCall([] { QCoreApplication::processEvents(); });
        _closed = QObject::connect(qApp, &QGuiApplication::lastWindowClosed, [this] { interrupt(); });
    }
    _interpreter->setListener(_listener);
}

bool Scripting::isRunning() const
{
    return _interpreter && _interpreter->isRunning();
}

void Scripting::setListener(std::function<void(const std::string&, bool)> listener)
{
    _listener = std::move(listener);
    if (_interpreter)
        _interpreter->setListener(_listener);
}

void Scripting::interrupt()
{
    if (_interpreter)
        _interpreter->interrupt();
}

} // namespace kthost
