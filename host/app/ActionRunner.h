#pragma once

#include "host/app/CommandLine.h"

#include <QSize>

#include <functional>

namespace kthost
{

class Pictures;
class Session;

/// Does what the command line asks for, one after the other.
class ActionRunner
{
public:
    /// All three must outlive the runner. What is printed goes to the standard output.
    ActionRunner(Session& session, Pictures& pictures, std::function<void()> afterStep = {});

    /// Throws HostError where an action fails; the ones before it are done.
    void run(const std::vector<Action>& actions);

    /// Who runs scripts.
    void setScriptRunner(std::function<void(const ScriptAction&)> runner) { _runScript = std::move(runner); }

    /// What `--run` does, with the picture of each step where they are asked for; 0 steps a second stand for
    /// the present rate. `afterStep` may end it by throwing.
    void advance(double seconds, double framesPerSecond, const std::function<void()>& afterStep);

    /// What `--screenshot` does; an invalid size stands for the present one.
    void writePicture(const QString& file, const QSize& size);

private:
    void perform(const ListAction&);
    void perform(const DumpAction&);
    void perform(const SendAction& action);
    void perform(const RunAction& action);
    void perform(const FpsAction& action);
    void perform(const ScreenshotAction& action);
    void perform(const FramesAction& action);
    void perform(const SizeAction& action);
    void perform(const SaveAction& action);
    void perform(const ScriptAction& action);

    Session& _session;
    Pictures& _pictures;
    std::function<void()> _afterStep;
    std::function<void(const ScriptAction&)> _runScript;
    double _framesPerSecond = 25.0;
    QSize _size{1280, 800};
    QString _framesFolder; ///< Empty: steps are not drawn.
    int _framesWritten = 0;
};

} // namespace kthost
