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

    Session& _session;
    Pictures& _pictures;
    std::function<void()> _afterStep;
    double _framesPerSecond = 25.0;
    QSize _size{1280, 800};
    QString _framesFolder; ///< Empty: steps are not drawn.
    int _framesWritten = 0;
};

} // namespace kthost
