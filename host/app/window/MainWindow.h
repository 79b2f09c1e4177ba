#pragma once

#include "host/view/SceneView.h"
#include "host/view/SelectionMarker.h"

#include <QMainWindow>

class QKTDockWindowManager;
class QMenu;

namespace kthost
{

class Documents;
class HostLog;
class LogPanel;
class MessageConsole;
class RenderView;
class SceneTree;
class Session;
class StatusLine;

/// The host's window: the render view in the middle, panels docked around it, menus, a status line. What is
/// selected (ktSelectionManager) is marked in the view.
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
    SceneTree& sceneTree() { return *_sceneTree; }
    const SelectionMarker& marker() const { return _marker; }

    /// The layout of the last run, or without one the window's own. To be called when all modules are loaded,
    /// before the window is shown.
    void arrange();

    /// Shows the window and returns when it is on the display, so that what follows is seen.
    void appear();

    /// Opens a scene or a project, once unsaved changes are saved or given up; a failure is shown in a
    /// message box, and what was open stays open.
    void open(const QString& file);

    /// Opens what the command line names; throws HostError. The user is asked for a scene that is missing.
    void openFirst(const QString& file);

    /// Shows the simulation time in the status line, and the view as it is then.
    void showTime(double seconds);

    /// Shows an error without waiting for an answer.
    void showError(const QString& text);

public slots:
    /// Gives the keyboard to the next of the view and the panels in sight, round and round.
    void focusNextPanel();

    /// Brings the log in front.
    void showLog();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void childEvent(QChildEvent* event) override;

    /// Unsaved changes are asked about first. The layout of the docks is kept for the next run.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildDocks();
    void buildFileMenu();
    void buildViewMenu();
    void fillRecentMenu();
    void fillViewpointMenu();
    void savePicture();
    void tellSaved(const QString& file);
    void showAbout();
    void showScene();
    void showEdit();
    void markSelection();
    void setDefaultSizes();

    Session& _session;
    Documents* _documents;
    SceneView _sceneView;
    SelectionMarker _marker;
    RenderView* _view;
    QKTDockWindowManager* _docks;
    SceneTree* _sceneTree;
    MessageConsole* _messages;
    LogPanel* _log;
    StatusLine* _status;
    QMenu* _recentMenu = nullptr;
    QMenu* _viewpointMenu = nullptr;
};

} // namespace kthost
