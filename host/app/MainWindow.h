#pragma once

#include "host/view/SceneView.h"

#include <QMainWindow>

class QAction;
class QKTDockWindowManager;
class QLabel;
class QMenu;

namespace kthost
{

class HostLog;
class RenderView;
class SceneTree;
class Session;

/// The host's window: the render view in the middle, panels docked around it, menus, a status line.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both must outlive the window.
    MainWindow(Session& session, const HostLog& log);
    ~MainWindow() override;

    QKTDockWindowManager& docks() { return *_docks; }
    RenderView& view() { return *_view; }
    SceneView& sceneView() { return _sceneView; }

    /// Opens a scene; a failure is shown in a message box, and what was open stays open.
    void open(const QString& file);

    /// Shows the simulation time in the status line, and the view as it is then.
    void showTime(double seconds);

    /// Shows an error without waiting for an answer.
    void showError(const QString& text);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    /// The layout of the docks is kept for the next run.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildDocks(const HostLog& log);
    void buildMenus();
    void fillRecentMenu();
    void fillViewpointMenu();
    void chooseFile();
    void savePicture();
    void showAbout();
    void showScene();

    Session& _session;
    SceneView _sceneView;
    RenderView* _view;
    QKTDockWindowManager* _docks;
    SceneTree* _sceneTree;
    QMenu* _recentMenu = nullptr;
    QMenu* _viewpointMenu = nullptr;
    QLabel* _sceneLabel;
    QLabel* _timeLabel;
};

} // namespace kthost
