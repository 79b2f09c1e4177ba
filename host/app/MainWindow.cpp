#include "host/app/MainWindow.h"

#include "host/app/HostError.h"
#include "host/app/LogPanel.h"
#include "host/app/MessageConsole.h"
#include "host/app/Pictures.h"
#include "host/app/RecentFiles.h"
#include "host/app/SceneTree.h"
#include "host/app/SensorInspector.h"
#include "host/app/Session.h"
#include "host/view/RenderView.h"

#include <kt/ktLog.h>
#include <qkt/QKTDockWindowManager.h>

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

namespace kthost
{
namespace
{

constexpr QSize firstSize(1280, 800);

QString sceneFilter()
{
    return MainWindow::tr("VRML97 scenes (*.wrl *.wrl.gz *.wrz *.vrml *.gz);;All files (*)");
}

/// The one local file that is dragged; empty where it is none or several.
QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(Session& session, const HostLog& log)
    : _session(session),
      _view(new RenderView(_sceneView, this)),
      _docks(new QKTDockWindowManager(this)),
      _sceneTree(new SceneTree),
      _sceneLabel(new QLabel(this)),
      _timeLabel(new QLabel(this))
{
    setCentralWidget(_view);
    setAcceptDrops(true);
    setDockOptions(dockOptions() | QMainWindow::AllowNestedDocks);
    buildDocks(log);
    buildMenus();
    statusBar()->addWidget(_sceneLabel, 1);
    statusBar()->addPermanentWidget(_timeLabel);
    connect(&session, &Session::sceneReplaced, this, &MainWindow::showScene);
    connect(&session, &Session::sceneEdited, _sceneTree, &SceneTree::refresh);
    showScene();
    resize(firstSize);
}

MainWindow::~MainWindow()
{
    delete _view; // it draws a member of ours
}

void MainWindow::buildDocks(const HostLog& log)
{
    const QString group = tr("Host");
    const auto add = [&](const char* name, QWidget* widget, const QString& title, Qt::DockWidgetArea area) {
        _docks->add(name, group, widget, QString(), QIcon(), title, area, true, nullptr);
    };
    add("Scene", _sceneTree, tr("Scene"), Qt::LeftDockWidgetArea);
    add("Sensors", new SensorInspector(_session.frames()), tr("Sensors"), Qt::BottomDockWidgetArea);
    add("Messages", new MessageConsole(_session.frames()), tr("Messages"), Qt::BottomDockWidgetArea);
    add("Log", new LogPanel(log), tr("Log"), Qt::BottomDockWidgetArea);
}

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open..."), this, &MainWindow::chooseFile, QKeySequence::Open);
    _recentMenu = file->addMenu(tr("Open &Recent"));
    connect(_recentMenu, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    file->addAction(tr("&Close"), &_session, &Session::close, QKeySequence::Close);
    file->addSeparator();
    file->addAction(tr("&Save Picture..."), this, &MainWindow::savePicture,
                    QKeySequence(Qt::CTRL | Qt::Key_P));
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("View &All"), _view, &RenderView::viewAll, QKeySequence(Qt::CTRL | Qt::Key_0));
    view->addAction(
        tr("&Reset Camera"), this, [this] { _sceneView.resetCamera(); },
        QKeySequence(Qt::CTRL | Qt::Key_Home));
    _viewpointMenu = view->addMenu(tr("&Viewpoints"));
    connect(_viewpointMenu, &QMenu::aboutToShow, this, &MainWindow::fillViewpointMenu);

    menuBar()->addMenu(_docks->windowMenu());
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About kthost"), this, &MainWindow::showAbout);
}

void MainWindow::fillRecentMenu()
{
    _recentMenu->clear();
    const QStringList files = RecentFiles::list();
    for (const QString& file : files) {
        QString text = QFileInfo(file).fileName();
        QAction* action = _recentMenu->addAction(text.replace('&', "&&"), this, [this, file] { open(file); });
        action->setToolTip(file);
        action->setStatusTip(file);
    }
    if (files.isEmpty()) {
        _recentMenu->addAction(tr("No recent files"))->setEnabled(false);
        return;
    }
    _recentMenu->addSeparator();
    _recentMenu->addAction(tr("&Clear"), &RecentFiles::clear);
}

void MainWindow::fillViewpointMenu()
{
    _viewpointMenu->clear();
    const QStringList names = _sceneView.viewpoints();
    for (int i = 0; i < names.size(); ++i) {
        QString text = names.at(i);
        QAction* action = _viewpointMenu->addAction(text.replace('&', "&&"), this,
                                                    [this, i] { _sceneView.bindViewpoint(i); });
        action->setCheckable(true);
        action->setChecked(i == _sceneView.boundViewpoint());
    }
    if (names.isEmpty())
        _viewpointMenu->addAction(tr("The scene has none"))->setEnabled(false);
}

void MainWindow::chooseFile()
{
    const QString folder = QFileInfo(_session.file()).path();
    const QString file = QFileDialog::getOpenFileName(this, tr("Open"), folder, sceneFilter());
    if (!file.isEmpty())
        open(file);
}

void MainWindow::open(const QString& file)
{
    try {
        _session.open(file);
    } catch (const HostError& error) {
        ktLog::error("kthost: %s", error.what());
        showError(QString::fromStdString(error.what()));
    }
}

void MainWindow::savePicture()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Save Picture"), QStringLiteral("picture.png"),
                                                      tr("Pictures (*.png)"));
    if (file.isEmpty())
        return;
    try {
        Pictures(_session, &_sceneView).write(file, _view->size() * _view->devicePixelRatio());
        statusBar()->showMessage(tr("Saved %1").arg(file), 5000);
    } catch (const HostError& error) {
        showError(QString::fromStdString(error.what()));
    }
}

void MainWindow::showError(const QString& text)
{
    auto* box = new QMessageBox(QMessageBox::Warning, tr("kthost"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void MainWindow::showAbout()
{
    QMessageBox::about(
        this, tr("About kthost"),
        tr("<b>kthost %1</b><p>Opens VRML97 scenes and lets plug-ins drive their animations.</p>")
            .arg(QCoreApplication::applicationVersion()));
}

void MainWindow::showScene()
{
    _sceneView.setScene(_session.drawing(), _session.names());
    _sceneTree->refresh();
    setWindowFilePath(_session.file());
    if (_session.file().isEmpty()) {
        setWindowTitle(QStringLiteral("kthost"));
        _sceneLabel->setText(tr("No scene is open. Drop a VRML97 file here, or press %1.")
                                 .arg(QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText)));
        return;
    }
    setWindowTitle(tr("%1 - kthost").arg(QFileInfo(_session.file()).fileName()));
    const auto count = static_cast<int>(_session.frames().sensors().size());
    _sceneLabel->setText(
        tr("%1: %n time sensor(s)", nullptr, count).arg(QFileInfo(_session.file()).fileName()));
    RecentFiles::add(_session.file());
}

void MainWindow::showTime(double seconds)
{
    _sceneView.updateViewpoint();
    _timeLabel->setText(tr("%1 s").arg(seconds, 0, 'f', 1));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    _docks->saveLayout();
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
    open(draggedFile(event->mimeData()));
}

} // namespace kthost
