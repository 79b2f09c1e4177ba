// Starts a window, and ends with its first rendered frame: what startupBench measures from the outside.
//   startupProbe bare          a Qt main window with an empty examiner viewer
//   startupProbe host FOLDER   the host's window without a scene, with the plug-ins of FOLDER
#include "host/app/HostLog.h"
#include "host/app/PluginLoader.h"
#include "host/app/Session.h"
#include "host/app/window/MainWindow.h"
#include "host/view/RenderView.h"

#include <kt/ktController.h>
#include <qkt/QKTDockWindowManager.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>

#include <QApplication>
#include <QMainWindow>

#include <cstdlib>
#include <cstring>

namespace
{

/// Without the shutdown, which nobody waits for.
[[noreturn]] void firstFrameIsThere()
{
    std::_Exit(0);
}

class BareViewer : public SoQtExaminerViewer
{
public:
    using SoQtExaminerViewer::SoQtExaminerViewer;

protected:
    void actualRedraw() override
    {
        SoQtExaminerViewer::actualRedraw();
        firstFrameIsThere();
    }
};

int runBare()
{
    QMainWindow window;
    SoQt::init(&window);
    BareViewer viewer(&window);
    window.setCentralWidget(viewer.getWidget());
    window.resize(1280, 800);
    window.show();
    viewer.show();
    return QApplication::exec();
}

int runHost(const char* pluginFolder)
{
    kthost::HostLog log;
    kthost::Session session;
    kthost::MainWindow window(session, log);
    ktController::setMainWindow(&window, &window.docks());
    kthost::PluginLoader plugins;
    plugins.loadFolder(QString::fromLocal8Bit(pluginFolder));
    QObject::connect(&window.view(), &kthost::RenderView::frameRendered, &window, firstFrameIsThere);
    window.resize(1280, 800);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "bare") == 0) {
        const QApplication application(argc, argv);
        return runBare();
    }
    if (argc == 3 && std::strcmp(argv[1], "host") == 0) {
        const QApplication application(argc, argv);
        return runHost(argv[2]);
    }
    return 2;
}
