#include "host/app/ActionRunner.h"

#include "host/app/HostError.h"
#include "host/app/Pictures.h"
#include "host/app/Report.h"
#include "host/app/Session.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>

#include <QDir>

#include <iostream>

namespace kthost
{

ActionRunner::ActionRunner(Session& session, Pictures& pictures, std::function<void()> afterStep)
    : _session(session), _pictures(pictures), _afterStep(std::move(afterStep))
{
}

void ActionRunner::run(const std::vector<Action>& actions)
{
    for (const Action& action : actions) {
        std::visit([this](const auto& known) { perform(known); }, action);
        _session.frames().settle();
        std::cout.flush();
        if (!std::cout)
            throw HostError(ExitStatus::BadFile, "standard output", "it could not be written");
    }
}

void ActionRunner::perform(const ListAction&)
{
    for (const std::string& name : registeredAnimations())
        std::cout << name << '\n';
}

void ActionRunner::perform(const DumpAction&)
{
    for (const SceneSensor& sensor : _session.frames().sensors())
        std::cout << sensorAsJson(sensor) << '\n';
}

void ActionRunner::perform(const SendAction& action)
{
    ktMessage message;
    message.set("animation-name", action.animation);
    if (ktController::sendMessage(action.message.c_str(), message) == 0)
        throw HostError(ExitStatus::BadArguments, "--send",
                        "nobody listens to the message '" + action.message + "'");
}

void ActionRunner::advance(double seconds, double framesPerSecond, const std::function<void()>& afterStep)
{
    const double rate = framesPerSecond > 0.0 ? framesPerSecond : _framesPerSecond;
    _session.frames().run(seconds, rate, [&] {
        if (!_framesFolder.isEmpty()) {
            ++_framesWritten;
            const QString name = QStringLiteral("frame-%1.png").arg(_framesWritten, 5, 10, QLatin1Char('0'));
            _pictures.write(QDir(_framesFolder).filePath(name), _size);
        }
        if (_afterStep)
            _afterStep();
        if (afterStep)
            afterStep();
    });
}

void ActionRunner::writePicture(const QString& file, const QSize& size)
{
    _pictures.write(file, size.isValid() ? size : _size);
}

void ActionRunner::perform(const RunAction& action)
{
    advance(action.seconds, _framesPerSecond, {});
}

void ActionRunner::perform(const FpsAction& action)
{
    _framesPerSecond = action.framesPerSecond;
}

void ActionRunner::perform(const ScreenshotAction& action)
{
    writePicture(action.file, _size);
}

void ActionRunner::perform(const FramesAction& action)
{
    if (!QDir().mkpath(action.folder))
        throw HostError(ExitStatus::BadFile, action.folder.toStdString(), "the folder could not be made");
    _framesFolder = action.folder;
    _framesWritten = 0;
}

void ActionRunner::perform(const SizeAction& action)
{
    _size = action.size;
}

void ActionRunner::perform(const SaveAction& action)
{
    _session.save(action.file);
}

void ActionRunner::perform(const ScriptAction& action)
{
    _runScript(action);
}

} // namespace kthost
