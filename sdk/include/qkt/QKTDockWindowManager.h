#pragma once

#include <kt/Export.h>

#include <QIcon>
#include <QObject>

#include <memory>
#include <vector>

class QDockWidget;
class QMainWindow;
class QMenu;

/// Docks the windows of the host and of its modules in the main window, lists them in a menu and remembers
/// where the user put them.
///
/// Docks of one side share it as tabs, the one that was shown last on top. Each can be moved, floated and
/// closed; closing only hides. A right click on a dock's title offers floating and closing, and the dock's
/// own entries.
///
/// The layout is kept in the application's QSettings, and not at all where
/// QCoreApplication::organizationName() is empty.
class KT_EXPORT QKTDockWindowManager : public QObject
{
    Q_OBJECT

public:
    /// The docks become children of `window`, which must not be null. The manager is the window's child too.
    explicit QKTDockWindowManager(QMainWindow* window);
    ~QKTDockWindowManager() override;

    /// Docks `widget` and shows it if `visible` is set; after restoreLayout(), a dock that the remembered
    /// layout knows goes where it was and is shown if it was.
    ///
    /// `name` identifies the window in the remembered layout; where it is null, empty or taken, one is made
    /// from the title. `group` is the heading it is listed under in the window menu; empty for none. `help`,
    /// the id of its help text, is kept as the dock's property "helpId". `title` is its caption, shown as it
    /// is. `area` is where it goes: Qt::NoDockWidgetArea leaves it to the host, which takes the bottom: what
    /// is wider than high fits there. `menu` holds further entries of its title's context menu, or is null;
    /// it stays the caller's and may go any time.
    ///
    /// The dock, which is given back, owns the widget, and goes with it. A null widget gives null, one that
    /// is docked here already its dock.
    QDockWidget* add(const char* name, const QString& group, QWidget* widget, const QString& help,
                     const QIcon& icon, const QString& title, Qt::DockWidgetArea area, bool visible,
                     QMenu* menu);

    /// Takes the widget's dock, and the widget with it, out of the main window and destroys both. Null or a
    /// widget that is not docked here is ignored.
    void remove(QWidget* widget);

    /// The menu that shows and hides the docks, in their groups, and resets the layout. It belongs to the
    /// main window.
    QMenu* windowMenu() const { return _menu; }

    /// Writes the window's geometry and the place and visibility of all docks and tool bars that have an
    /// object name; of docks that were known to the layout and are not there in this run, too. To be called
    /// before the window is closed. False where nothing could be written.
    bool saveLayout() const;

    /// Brings the window and the docks to where saveLayout() found them. Docks may be added before or after;
    /// those that the layout does not know keep their default place. False where there is none that fits:
    /// nothing changes then.
    bool restoreLayout();

public slots:
    /// Puts every dock where add() puts it without a remembered layout.
    void resetLayout();

signals:
    /// resetLayout() has put the docks back; who wants them in sizes of their own gives them now.
    void layoutReset();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Dock;

    Dock* find(const QObject* object) const;
    QString freeName(const char* name, const QString& title) const;
    void place(const Dock& known);
    void fitFirstFloat(Dock& floated);
    void forget(const QObject* dock);
    void rebuildMenu();
    void showTitleMenu(const Dock& known, const QPoint& position);

    QMainWindow* _window;
    QMenu* _menu;
    std::vector<std::unique_ptr<Dock>> _docks;
    bool _restoring = false;
};
