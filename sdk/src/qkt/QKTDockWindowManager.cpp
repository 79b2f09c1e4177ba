#include <qkt/QKTDockWindowManager.h>

#include "qkt/UiSettings_p.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>

#include <algorithm>

namespace
{

/// Raised when the host's own bars change so much that a remembered layout no longer fits.
constexpr int layoutVersion = 1;

QString geometryKey()
{
    return QStringLiteral("windows/geometry");
}

QString stateKey()
{
    return QStringLiteral("windows/layout");
}

/// For menus, tabs and title bars, which all take an ampersand for the mark of a shortcut.
QString withoutMnemonic(QString title)
{
    return title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QDockWidget* makeDock(const QString& name, QWidget* widget, const QIcon& icon, const QString& title,
                      QMainWindow* window)
{
    auto* dock = new QDockWidget(withoutMnemonic(title), window);
    dock->setObjectName(name);
    dock->setWindowIcon(icon);
    // A docked window has no corner of its own to be dragged by.
    for (QStatusBar* bar : widget->findChildren<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly))
        bar->setSizeGripEnabled(false);
    return dock;
}

/// The dock's entry of the window menu.
QAction* makeAction(QDockWidget* dock)
{
    auto* action = new QAction(dock->windowIcon(), dock->windowTitle(), dock);
    action->setCheckable(true);
    action->setChecked(!dock->isHidden());
    action->setIconVisibleInMenu(false); // styles show either the icon or the tick
    QObject::connect(action, &QAction::triggered, dock, [dock](bool shown) {
        dock->setVisible(shown);
        if (shown)
            dock->raise();
    });
    return action;
}

/// `size` at `position`, moved and cut so that all of it is on the screen.
QRect onScreen(const QPoint& position, const QSize& size, const QScreen* screen)
{
    const QRect room = screen->availableGeometry();
    QRect placed(position, size.boundedTo(room.size()));
    placed.moveRight(std::min(placed.right(), room.right()));
    placed.moveBottom(std::min(placed.bottom(), room.bottom()));
    placed.moveLeft(std::max(placed.left(), room.left()));
    placed.moveTop(std::max(placed.top(), room.top()));
    return placed;
}

} // namespace

struct QKTDockWindowManager::Dock
{
    QDockWidget* dock;
    QPointer<QWidget> widget;
    QString group;
    Qt::DockWidgetArea area;
    bool visible;
    QPointer<QMenu> menu;
    QAction* action; ///< The entry of the window menu.
    QSize floatSize; ///< What it takes when it first floats; empty from then on.
};

QKTDockWindowManager::QKTDockWindowManager(QMainWindow* window)
    : QObject(window), _window(window), _menu(new QMenu(tr("&Window"), window))
{
    _window->setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    // A column of forms needs the height more than a bar of output does.
    _window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    _window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    rebuildMenu();
}

QKTDockWindowManager::~QKTDockWindowManager() = default;

QDockWidget* QKTDockWindowManager::add(const char* name, const QString& group, QWidget* widget,
                                       const QString& help, const QIcon& icon, const QString& title,
                                       Qt::DockWidgetArea area, bool visible, QMenu* menu)
{
    if (!widget)
        return nullptr;
    if (const Dock* known = find(widget))
        return known->dock;

    QDockWidget* dock = makeDock(freeName(name, title), widget, icon, title, _window);
    dock->setProperty("helpId", help);
    const auto side = area == Qt::NoDockWidgetArea ? Qt::BottomDockWidgetArea : area;
    const QSize size = widget->testAttribute(Qt::WA_Resized) ? widget->size() : widget->sizeHint();
    _docks.push_back(
        std::make_unique<Dock>(Dock{dock, widget, group, side, visible, menu, makeAction(dock), size}));
    dock->installEventFilter(this);
    dock->setWidget(widget);
    connect(dock, &QObject::destroyed, this, &QKTDockWindowManager::forget);
    connect(dock, &QDockWidget::topLevelChanged, this, [this, dock] { fitFirstFloat(*find(dock)); });
    connect(widget, &QObject::destroyed, dock, &QObject::deleteLater);

    _restoring = true;
    const bool isRestored = _window->restoreDockWidget(dock);
    _restoring = false;
    if (!isRestored)
        place(*_docks.back());
    rebuildMenu();
    return dock;
}

void QKTDockWindowManager::remove(QWidget* widget)
{
    if (const Dock* known = widget ? find(widget) : nullptr)
        delete known->dock;
}

QKTDockWindowManager::Dock* QKTDockWindowManager::find(const QObject* object) const
{
    for (const auto& known : _docks)
        if (known->dock == object || known->widget == object)
            return known.get();
    return nullptr;
}

QString QKTDockWindowManager::freeName(const char* name, const QString& title) const
{
    const QString wanted = name && *name ? QString::fromUtf8(name) : title;
    QString free = wanted;
    const auto isTaken = [&free](const auto& known) { return known->dock->objectName() == free; };
    for (int number = 2; free.isEmpty() || std::any_of(_docks.begin(), _docks.end(), isTaken); ++number)
        free = wanted + QLatin1Char(' ') + QString::number(number);
    return free;
}

void QKTDockWindowManager::place(const Dock& known)
{
    _window->addDockWidget(known.area, known.dock);
    for (const auto& other : _docks) {
        const bool isNeighbour = other->dock != known.dock && !other->dock->isFloating() &&
                                 _window->dockWidgetArea(other->dock) == known.area;
        if (isNeighbour) {
            _window->tabifyDockWidget(other->dock, known.dock);
            break;
        }
    }
    known.dock->setVisible(known.visible);
    if (known.visible)
        known.dock->raise();
}

void QKTDockWindowManager::forget(const QObject* dock)
{
    const auto isDock = [dock](const auto& known) { return known->dock == dock; };
    _docks.erase(std::remove_if(_docks.begin(), _docks.end(), isDock), _docks.end());
    rebuildMenu();
}

bool QKTDockWindowManager::saveLayout() const
{
    const bool wroteState = UiSettings::setValue(stateKey(), _window->saveState(layoutVersion));
    return wroteState && UiSettings::setValue(geometryKey(), _window->saveGeometry());
}

bool QKTDockWindowManager::restoreLayout()
{
    const QByteArray state = UiSettings::value(stateKey()).toByteArray();
    _restoring = true;
    const bool isRestored = !state.isEmpty() && _window->restoreState(state, layoutVersion);
    _restoring = false;
    if (!isRestored)
        return false;
    _window->restoreGeometry(UiSettings::value(geometryKey()).toByteArray());
    return true;
}

void QKTDockWindowManager::resetLayout()
{
    for (const auto& known : _docks) {
        known->dock->setFloating(false);
        _window->removeDockWidget(known->dock);
    }
    for (const auto& known : _docks)
        place(*known);
    emit layoutReset();
}

void QKTDockWindowManager::fitFirstFloat(Dock& floated)
{
    // A dock as wide as the main window would float that wide, and in a corner of the screen. One that is
    // being dragged must stay under the mouse.
    if (_restoring || !floated.dock->isFloating() || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    QRect wanted(QPoint(), floated.floatSize);
    wanted.moveCenter(_window->geometry().center());
    if (!floated.floatSize.isEmpty())
        floated.dock->setGeometry(onScreen(wanted.topLeft(), wanted.size(), _window->screen()));
    floated.floatSize = QSize();
}

void QKTDockWindowManager::rebuildMenu()
{
    _menu->clear();
    QStringList groups;
    for (const auto& known : _docks)
        if (!groups.contains(known->group))
            groups << known->group;
    for (const QString& group : groups) {
        _menu->addSection(withoutMnemonic(group));
        for (const auto& known : _docks)
            if (known->group == group)
                _menu->addAction(known->action);
    }
    _menu->addSeparator();
    _menu->addAction(tr("&Reset Layout"), this, &QKTDockWindowManager::resetLayout);
}

bool QKTDockWindowManager::eventFilter(QObject* watched, QEvent* event)
{
    const Dock* known = find(watched);
    if (!known || watched != known->dock)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        // The dock's own toggle action misses these while the main window is hidden.
        known->action->setChecked(event->type() == QEvent::ShowToParent);
        return false;
    case QEvent::ContextMenu: {
        const auto* click = static_cast<QContextMenuEvent*>(event);
        // A right click on the widget that the widget left alone comes up here as well.
        if (known->widget && known->widget->geometry().contains(click->pos()))
            return false;
        showTitleMenu(*known, click->globalPos());
        return true;
    }
    default:
        return false;
    }
}

void QKTDockWindowManager::showTitleMenu(const Dock& known, const QPoint& position)
{
    auto* menu = new QMenu(known.dock);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QDockWidget* dock = known.dock;
    menu->addAction(dock->isFloating() ? tr("&Dock") : tr("&Float"), dock,
                    [dock] { dock->setFloating(!dock->isFloating()); });
    menu->addAction(tr("&Close"), dock, &QWidget::close);
    if (known.menu) {
        menu->addSeparator();
        menu->addActions(known.menu->actions());
    }
    menu->popup(position);
}
