#pragma once

#include <QObject>
#include <QString>

class QMenu;
class QWidget;

namespace kthost
{

class Session;

/// Opening, saving and closing scenes and projects in the window, with the questions that this takes. Dialogs
/// are modal to the window. Keeps the window's title, and its mark for unsaved changes, up to date.
class Documents : public QObject
{
    Q_OBJECT

public:
    /// The session must outlive this; it belongs to the window.
    Documents(Session& session, QWidget& window);

    /// The File menu's entries for them.
    void addActions(QMenu& menu);

    /// Opens a scene or a project. Where the project's scene is not there, the user is asked for it; where
    /// that leads to none, and for any other failure, throws HostError.
    void openOrThrow(const QString& file);

    /// The same, once unsaved changes are saved or given up; failures go to failed().
    void open(const QString& file);

    /// Asks whether unsaved changes are to be saved, if there are any, and saves them. False where the user
    /// would rather stay, or the save failed.
    bool mayLeave();

public slots:
    void chooseAndOpen();
    void closeAll();

    /// Under the project's name; a new project is asked for one. False where nothing was saved.
    bool save();
    bool saveAs();

signals:
    /// One line for the user.
    void failed(const QString& line);

    /// The project was saved to this file.
    void saved(const QString& file);

private:
    /// A file to show in titles and dialogs: the project's, else the scene's; empty where nothing is open.
    QString shownFile() const;

    bool saveTo(const QString& file);
    QString askForScene(const QString& project, const QString& missing);
    void showTitle();
    void showModified();

    Session& _session;
    QWidget& _window;
};

} // namespace kthost
