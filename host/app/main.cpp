#include "host/app/ActionRunner.h"
#include "host/app/CommandLine.h"
#include "host/app/HostApplication.h"
#include "host/app/HostError.h"
#include "host/app/HostLog.h"
#include "host/app/LastWords.h"
#include "host/app/LiveClock.h"
#include "host/app/Pictures.h"
#include "host/app/PluginLoader.h"
#include "host/app/ProjectMessage.h"
#include "host/app/Scripting.h"
#include "host/app/Session.h"
#include "host/app/SignalledEnd.h"
#include "host/app/window/MainWindow.h"
#if KT_HAS_SCRIPTING
#include "host/app/window/ScriptConsole.h"
#endif
#include "host/files/EndSignals.h"
#include "host/files/WholeSettings.h"
#include "host/vrml/SceneGuard.h"

#include <kt/ktController.h>
#include <kt/ktFailures.h>
#include <kt/ktLog.h>
#include <qkt/QKTDockWindowManager.h>

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFontInfo>
#include <QScopeGuard>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>

#ifdef KT_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

using namespace kthost;

int fail(const HostError& error)
{
    std::fprintf(stderr, "kthost: %s\n", error.what());
    return static_cast<int>(error.status());
}

/// The status of a run, as soon as it is known: what follows is tidying up.
int leaving(int status)
{
    LastWords::setStatus(status);
    return status;
}

/// The status that the program ends with: output that was lost is a failure, too.
int ended(int status)
{
    std::cout.flush();
    std::fflush(stdout);
    if (status == 0 && (!std::cout || std::ferror(stdout) != 0))
        return fail(HostError(ExitStatus::BadFile, "standard output", "it could not be written"));
    return status;
}

/// What no room caught on the way, such as a lack of memory, ends in one line like everything else.
HostError unexpected()
{
    return {ExitStatus::Broken, "what was asked for failed", ktFailures::present()};
}

/// See LastWords: a window's unsaved work.
std::string rescue(const Session& session)
{
    const Session::Rescued rescued = session.rescue();
    if (rescued.file.isEmpty())
        return {};
    return "what was not saved is in " + rescued.file.toStdString() +
           (rescued.failedModules > 0 ? ", but " + saidOfFailures(rescued.failedModules) : "");
}

/// What Qt has to say is for the log; what it cannot go on from ends the program in one line.
void handleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const bool isGuiThread = !qApp || QThread::currentThread() == qApp->thread();
    // X11's or Wayland's; the toolkit ends the program itself, and less clearly, when this returns.
    if (isGuiThread && text.contains(QLatin1String(" connection broke")))
        LastWords::end(HostError(ExitStatus::NoPicture, "window", "the display went away"));
    if (type != QtFatalMsg) {
        const auto log = [text] { ktLog::info("%s", qUtf8Printable(text)); };
        if (isGuiThread)
            log();
        else
            QMetaObject::invokeMethod(qApp, log, Qt::QueuedConnection);
        return;
    }
    LastWords::end(HostError(ExitStatus::NoPicture, "window", text.simplified().toStdString()));
}

/// The platform's screens, and the fonts that are read here, are kept until the end on purpose.
std::unique_ptr<HostApplication> startToolkit(int& argc, char** argv)
{
#ifdef KT_LOOKS_FOR_LEAKS
    const __lsan::ScopedDisabler keptOnPurpose;
#endif
    auto application = std::make_unique<HostApplication>(argc, argv);
    QFontInfo(HostApplication::font()).family();
    return application;
}

/// The named plug-ins, or else the installed ones.
void loadPlugins(PluginLoader& loader, const CommandLine& line)
{
    for (const QString& file : line.pluginFiles) {
        const QString why = loader.load(file);
        if (!why.isEmpty())
            throw HostError(ExitStatus::NoPlugin, "plug-in " + file.toStdString(), why.toStdString());
    }
    for (const QString& folder : line.pluginFolders) {
        if (!QDir(folder).exists())
            throw HostError(ExitStatus::BadFile, "plug-in folder " + folder.toStdString(),
                            "it does not exist");
        loader.loadFolder(folder);
    }
    if (line.pluginFiles.empty() && line.pluginFolders.empty())
        loader.loadFolder(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(KT_PLUGIN_FOLDER)));
}

/// Starts beside the rest of the program, so that it is ready for the first scene.
std::string guardProgram()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    return QFile::encodeName(folder.filePath(QStringLiteral(KT_SCENE_CHECK))).toStdString();
}

int runHeadless(const CommandLine& line)
{
    SceneGuard guard(guardProgram(), ReadLimits::fromEnvironment());
    Session session;
    session.setGuard(&guard);
    Pictures pictures(session);
    QMainWindow window; // never shown; modules make their panels in it
    QKTDockWindowManager docks(&window);
    ktController::setMainWindow(&window, &docks);
    PluginLoader plugins;
    const auto sceneFirst = qScopeGuard([&session] { session.letGo(); });
    ActionRunner runner(session, pictures);
    Scripting scripting(session, runner);
    try {
        loadPlugins(plugins, line);
        if (!line.file.isEmpty())
            session.open(line.file);
        runner.run(line.actions);
    } catch (const ScriptExit& exit) {
        return leaving(exit.status);
    } catch (const HostError& error) {
        return leaving(fail(error));
    }
    return leaving(0);
}

#if KT_HAS_SCRIPTING
void addScriptConsole(MainWindow& window, Scripting& scripting)
{
    auto* console = new ScriptConsole(scripting); // the window's from now on
    QObject::connect(console, &ScriptConsole::exitAsked, [](int status) { QCoreApplication::exit(status); });
    window.docks().add("Script", QCoreApplication::translate("MainWindow", "Host"), console, QString(),
                       QIcon(), QCoreApplication::translate("MainWindow", "Script"), Qt::BottomDockWidgetArea,
                       true, nullptr);
}
#else
void addScriptConsole(MainWindow&, Scripting&) {}
#endif

/// Calls `use`, which answers the status to end with. An exception that it expected itself as little as
/// anybody ends the program here, where there still is something to rescue.
template <class Use>
int untilTheEnd(Use&& use)
{
    try {
        return leaving(use());
    } catch (...) {
        LastWords::end(unexpected());
    }
}

int runInWindow(const CommandLine& line, const HostLog& log)
{
    SceneGuard guard(guardProgram(), ReadLimits::fromEnvironment());
    Session session;
    session.setGuard(&guard);
    MainWindow window(session, log);
    const LastWords::Rescuer rescuer([&session] { return rescue(session); });
    ktController::setMainWindow(&window, &window.docks());
    PluginLoader plugins;
    const auto sceneFirst = qScopeGuard([&session] { session.letGo(); });
    LiveClock clock(session.frames());
    Pictures pictures(session, &window.sceneView());
    ActionRunner runner(session, pictures, [] { QCoreApplication::processEvents(); });
    Scripting scripting(session, runner, &clock);
    QObject::connect(&clock, &LiveClock::ticked, &window, &MainWindow::showTime);
    std::optional<SignalledEnd> onSignals;
    return untilTheEnd([&] {
        int status = 0;
        try {
            addScriptConsole(window, scripting); // before plug-ins, whose panels are what is in front
            loadPlugins(plugins, line);
            window.arrange();
            window.appear();
            if (!line.file.isEmpty())
                window.openFirst(line.file);
            onSignals.emplace(); // until something is open, the end by a signal need not wait for anything
            runner.run(line.actions);
        } catch (const ScriptExit& exit) {
            return exit.status;
        } catch (const HostError& error) {
            status = fail(error);
            if (error.status() == ExitStatus::NoPlugin || !window.isVisible())
                return status;
            window.showError(QString::fromStdString(error.what()));
        }
        if (!onSignals)
            onSignals.emplace();
        if (!window.isVisible()) // it was closed meanwhile
            return status;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                         &clock, [&session] { session.frames().announceSceneChange(); });
        clock.start();
        const int asked = QApplication::exec();
        return asked == 0 ? status : asked;
    });
}

int run(const CommandLine& line)
{
    HostLog log;
    try {
        return line.isHeadless ? runHeadless(line) : runInWindow(line, log);
    } catch (...) {
        return fail(unexpected());
    }
}

} // namespace

int main(int argc, char** argv)
{
    // A file that may not grow further is an error to be told of, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    EndSignals::watch();
    LastWords::prepare();
    CommandLine line;
    try {
        line = CommandLine::parse(argc, argv);
    } catch (const HostError& error) {
        return fail(error);
    }
    QCoreApplication::setApplicationName(QStringLiteral("kthost"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KT_VERSION));
    QCoreApplication::setOrganizationName(QStringLiteral("kthost"));
    WholeSettings::use();
    if (line.wantsVersion) {
        std::printf("kthost %s\n", KT_VERSION);
        return ended(0);
    }
    qInstallMessageHandler(handleQtMessage);
    const bool hasNoWindow = line.isHeadless || line.wantsHelp;
    if (hasNoWindow)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const auto application = startToolkit(argc, argv);
    if (line.wantsHelp) {
        std::printf("%s", qPrintable(CommandLine::helpText()));
        return ended(0);
    }
    const int status = ended(run(line));
#ifdef KT_LOOKS_FOR_LEAKS
    // Now, while caches still hold what they own, and the drivers are still loaded and can be named.
    __lsan_do_leak_check();
#endif
    return status;
}
