#pragma once

#include <kt/Export.h>

#include <QIcon>
#include <QObject>

class QDockWidget;
class QMainWindow;
class QMenu;

/// Docks the windows of the host and of its modules in the main window.
class KT_EXPORT QKTDockWindowManager : public QObject
{
    Q_OBJECT

public:
    /// The docks become children of `window`, which must outlive the manager.
    explicit QKTDockWindowManager(QMainWindow* window);

    /// Docks `widget` and shows it if `visible` is set. `name` identifies the window, `group` is the menu group it is listed
    /// under, `help` the id of its help text, `title` its caption, `area` where it goes (Qt::NoDockWidgetArea leaves it to the
    /// host), `menu` what its caption's context menu holds besides, or null. The dock, which is given back, owns the widget.
    QDockWidget* add(const char* name, const QString& group, QWidget* widget, const QString& help, const QIcon& icon,
                     const QString& title, Qt::DockWidgetArea area, bool visible, QMenu* menu);

    /// Takes the widget's dock, and the widget with it, out of the main window and destroys both. Null or a widget that is
    /// not docked here is ignored.
    void remove(QWidget* widget);

private:
    QMainWindow* _window;
};
