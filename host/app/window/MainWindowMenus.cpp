// The menus of the window, and the dialogs that they open.
#include "host/app/window/MainWindow.h"

#include "host/app/HostError.h"
#include "host/app/Pictures.h"
#include "host/app/Session.h"
#include "host/app/window/Documents.h"
#include "host/app/window/RecentFiles.h"
#include "host/view/RenderView.h"

#include <kt/ktSelectionManager.h>

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

namespace kthost
{
namespace
{

constexpr int messageTime = 5000; ///< Milliseconds.

/// An entry of a list that grows: numbered, so that the keyboard reaches the first nine at once.
QString numbered(int index, QString text)
{
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    const QString mark = index < 9 ? QStringLiteral("&") : QString();
    return mark + QStringLiteral("%1  ").arg(index + 1) + text;
}

} // namespace

void MainWindow::buildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->setToolTipsVisible(true);
    menu->addAction(tr("&Open..."), _documents, &Documents::chooseAndOpen, QKeySequence::Open);
    _recentMenu = menu->addMenu(tr("Open &Recent"));
    _recentMenu->setToolTipsVisible(true);
    connect(_recentMenu, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    _documents->addActions(*menu);
    menu->addSeparator();
    menu->addAction(tr("Save &Picture..."), this, &MainWindow::savePicture,
                    QKeySequence(Qt::CTRL | Qt::Key_P));
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    menu->addAction(tr("View &All"), _view, &RenderView::viewAll, QKeySequence(Qt::CTRL | Qt::Key_0));
    menu->addAction(
        tr("&Reset Camera"), this, [this] { _sceneView.resetCamera(); },
        QKeySequence(Qt::CTRL | Qt::Key_Home));
    _viewpointMenu = menu->addMenu(tr("&Viewpoints"));
    connect(_viewpointMenu, &QMenu::aboutToShow, this, &MainWindow::fillViewpointMenu);
    menu->addSeparator();
    menu->addAction(
        tr("&Deselect All"), this, [] { ktSelectionManager::selectNodes({}); },
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
    menu->addAction(tr("&Next Panel"), this, &MainWindow::focusNextPanel, QKeySequence(Qt::Key_F6));
}

void MainWindow::fillRecentMenu()
{
    _recentMenu->clear();
    const QStringList files = RecentFiles::list();
    for (int i = 0; i < files.size(); ++i) {
        const QString file = files.at(i);
        QAction* action = _recentMenu->addAction(numbered(i, QFileInfo(file).fileName()), this,
                                                 [this, file] { open(file); });
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
    auto* one = new QActionGroup(_viewpointMenu);
    for (int i = 0; i < names.size(); ++i) {
        QAction* action = _viewpointMenu->addAction(numbered(i, names.at(i)), this,
                                                    [this, i] { _sceneView.bindViewpoint(i); });
        action->setCheckable(true);
        action->setChecked(i == _sceneView.boundViewpoint());
        one->addAction(action);
    }
    if (names.isEmpty())
        _viewpointMenu->addAction(tr("The scene has none"))->setEnabled(false);
}

void MainWindow::savePicture()
{
    const QString file = QFileDialog::getSaveFileName(this, tr("Save Picture"), QStringLiteral("picture.png"),
                                                      tr("Pictures (*.png)"));
    if (file.isEmpty())
        return;
    try {
        Pictures(_session, &_sceneView).write(file, _view->size() * _view->devicePixelRatioF());
        tellSaved(file);
    } catch (const HostError& error) {
        showError(QString::fromStdString(error.what()));
    }
}

void MainWindow::tellSaved(const QString& file)
{
    statusBar()->showMessage(tr("Saved %1").arg(file), messageTime);
}

void MainWindow::showAbout()
{
    auto* box = new QMessageBox(
        QMessageBox::NoIcon, tr("About kthost"),
        tr("<b>kthost %1</b><p>Opens VRML97 scenes and lets plug-ins drive their animations.</p>")
            .arg(QCoreApplication::applicationVersion()),
        QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace kthost
