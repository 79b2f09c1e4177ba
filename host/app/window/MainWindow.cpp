#include "host/app/window/MainWindow.h"

#include "host/app/Session.h"
#include "host/app/window/Documents.h"
#include "host/app/window/LogPanel.h"
#include "host/app/window/MessageConsole.h"
#include "host/app/window/SceneTree.h"
#include "host/app/window/SensorInspector.h"
#include "host/app/window/StatusLine.h"
#include "host/files/EndSignals.h"
#include "host/view/RenderView.h"

#include <kt/ktLog.h>
#include <kt/ktSelectionManager.h>
#include <qkt/QKTDockWindowManager.h>

#include <QApplication>
#include <QChildEvent>
#include <QDeadlineTimer>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>
#include <QWindow>

#include <algorithm>

namespace kthost
{
namespace
{

constexpr QSize firstSize(1440, 900);

/// In milliseconds; some displays never tell.
constexpr int longestAppearance = 1000;
constexpr int pause = 20;

constexpr int leastTree = 210;
constexpr double treeShare = 0.18;

/// Below the picture a panel of the first size fits whole, unless that took too much of the window.
constexpr int bottomHeight = 380;
constexpr double mostBottomShare = 0.46;

/// The one local file that is dragged; empty where it is none or several.
QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

QDockWidget* dockOf(const QWidget* panel)
{
    return qobject_cast<QDockWidget*>(panel->parentWidget());
}

/// Where Tab comes to first within a panel; null where nothing in it takes the keyboard.
QWidget* firstStop(QWidget* panel)
{
    QWidget* widget = panel;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled() &&
            (widget == panel || panel->isAncestorOf(widget)))
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != panel);
    return nullptr;
}

} // namespace

MainWindow::MainWindow(Session& session, const HostLog& log)
    : _session(session),
      _documents(new Documents(session, *this)),
      _marker(_sceneView),
      _view(new RenderView(_sceneView, this)),
      _docks(new QKTDockWindowManager(this)),
      _sceneTree(new SceneTree),
      _messages(new MessageConsole(session.frames())),
      _log(new LogPanel(log)),
      _status(new StatusLine(statusBar()))
{
    resize(firstSize.boundedTo(screen()->availableSize()));
    setCentralWidget(_view);
    setAcceptDrops(true);
    setDockOptions(dockOptions() | QMainWindow::AllowNestedDocks);
    buildDocks();
    buildFileMenu();
    buildViewMenu();
    menuBar()->addMenu(_docks->windowMenu());
    menuBar()->addMenu(tr("&Help"))->addAction(tr("&About kthost"), this, &MainWindow::showAbout);
    setTabOrder(&_sceneTree->filter(), &_sceneTree->view());
    setTabOrder(&_sceneTree->view(), _view->focusProxy());

    _marker.setStyle(palette().color(QPalette::Highlight), devicePixelRatioF());
    connect(_sceneTree, &SceneTree::selectionChanged, this, &MainWindow::markSelection);
    connect(&session, &Session::sceneReplaced, this, &MainWindow::showScene);
    connect(_documents, &Documents::failed, this, [this](const QString& line) {
        ktLog::error("kthost: %s", qUtf8Printable(line));
        showError(line);
    });
    connect(_documents, &Documents::saved, this, &MainWindow::tellSaved);
    connect(&session, &Session::sceneEdited, this, &MainWindow::showEdit);
    connect(&session, &Session::opening, _status, &StatusLine::showOpening);
    connect(&session, &Session::reading, _status, &StatusLine::showReading);
    connect(_status, &StatusLine::warningsClicked, this, &MainWindow::showLog);
    connect(_docks, &QKTDockWindowManager::layoutReset, this, &MainWindow::setDefaultSizes);
    showScene();
}

MainWindow::~MainWindow()
{
    delete _view; // it draws members of ours
}

void MainWindow::buildDocks()
{
    const QString group = tr("Host");
    const auto add = [&](const char* name, QWidget* widget, const QString& title, Qt::DockWidgetArea area) {
        _docks->add(name, group, widget, QString(), QIcon(), title, area, true, nullptr);
    };
    add("Scene", _sceneTree, tr("Scene"), Qt::LeftDockWidgetArea);
    add("Sensors", new SensorInspector(_session.frames()), tr("Sensors"), Qt::BottomDockWidgetArea);
    add("Messages", _messages, tr("Messages"), Qt::BottomDockWidgetArea);
    add("Log", _log, tr("Log"), Qt::BottomDockWidgetArea);
}

void MainWindow::arrange()
{
    _messages->refresh();
    if (!_docks->restoreLayout())
        setDefaultSizes();
}

void MainWindow::setDefaultSizes()
{
    layout()->activate(); // a window that is not shown yet has no sizes to change
    resizeDocks({dockOf(_sceneTree)}, {qMax(leastTree, static_cast<int>(width() * treeShare))},
                Qt::Horizontal);
    resizeDocks({dockOf(_log)}, {qMin(bottomHeight, static_cast<int>(height() * mostBottomShare))},
                Qt::Vertical);
}

void MainWindow::appear()
{
    show();
    const QDeadlineTimer enough(longestAppearance);
    while (!windowHandle()->isExposed() && !enough.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, pause);
}

void MainWindow::open(const QString& file)
{
    _documents->open(file);
}

void MainWindow::openFirst(const QString& file)
{
    _documents->openOrThrow(file);
}

void MainWindow::showError(const QString& text)
{
    auto* box = new QMessageBox(QMessageBox::Warning, tr("kthost"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void MainWindow::showScene()
{
    _sceneView.setScene(_session.drawing(), _session.names());
    showEdit();
}

void MainWindow::showEdit()
{
    _sceneTree->refresh();
    _messages->refresh();
    markSelection();
    _status->showScene(_session);
}

void MainWindow::markSelection()
{
    std::vector<SoNode*> marked;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes()) {
        const std::vector<SoNode*> drawings = _session.drawingsOf(node);
        marked.insert(marked.end(), drawings.begin(), drawings.end());
    }
    _marker.mark(marked);
}

void MainWindow::showTime(double seconds)
{
    _sceneView.updateViewpoint();
    _marker.update();
    _status->showTime(seconds);
}

void MainWindow::showLog()
{
    QDockWidget* dock = dockOf(_log);
    dock->show();
    dock->raise();
    _log->setFocus();
}

void MainWindow::focusNextPanel()
{
    std::vector<QWidget*> panels{_view};
    for (QDockWidget* dock : findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        // A dock behind another one's tab counts as visible, too.
        if (dock->isVisible() && !dock->visibleRegion().isEmpty() && firstStop(dock->widget()))
            panels.push_back(dock->widget());
    }
    const QWidget* focus = QApplication::focusWidget();
    const auto holdsFocus = [focus](const QWidget* panel) {
        return focus && (panel == focus || panel->isAncestorOf(focus));
    };
    auto next = std::find_if(panels.begin(), panels.end(), holdsFocus);
    if (next == panels.end() || ++next == panels.end())
        next = panels.begin();
    QWidget* stop = *next == _view ? _view : firstStop(*next);
    stop->window()->activateWindow();
    stop->setFocus(Qt::TabFocusReason);
}

void MainWindow::childEvent(QChildEvent* event)
{
    // The bars of tabs come and go with the docks that share a side.
    if (event->type() == QEvent::ChildPolished) {
        if (auto* tabs = qobject_cast<QTabBar*>(event->child()))
            tabs->setAccessibleName(tr("Panels"));
    }
    QMainWindow::childEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!_documents->mayLeave()) {
        event->ignore();
        return;
    }
    {
        const EndSignals::Hold untilItIsWhole;
        _docks->saveLayout();
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // Later: the program that the file comes from waits for the drop to end.
    const QString file = draggedFile(event->mimeData());
    QTimer::singleShot(0, this, [this, file] { open(file); });
}

} // namespace kthost
