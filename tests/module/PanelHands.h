#pragma once

#include "tests/support/PluginFixture.h"

#include <kt/ktOSGWidget.h>

#include <QMenu>
#include <QScrollArea>
#include <QtTest>

namespace kt::test
{

using Strings = std::vector<std::string>;

/// The built plug-in's panel in a window of its own, used through the window: every click, key and turn of
/// the mouse wheel goes to the window first, which finds the widget that it is for.
class PanelHands : public PluginFixture
{
protected:
    void SetUp() override
    {
        PluginFixture::SetUp();
        init();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// The scene has another time sensor, and the plug-in knows it.
    RecordingSensor& addAnimation(const char* name)
    {
        RecordingSensor& sensor = scene.addTimeSensor(name);
        deliver(32768);
        return sensor;
    }

    static void click(QWidget* widget, const QPoint& point, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        auto* scrolled = child<QScrollArea>("scrollArea");
        if (scrolled->isAncestorOf(widget))
            scrolled->ensureWidgetVisible(widget);
        QWindow* target = widget->window()->windowHandle();
        const QPoint place = widget->mapTo(widget->window(), point);
        QTest::mouseMove(target, place);
        QTest::mouseClick(target, button, modifiers, place);
    }

    static void click(QWidget* widget) { click(widget, widget->rect().center()); }

    static QPoint centreOf(int row) { return list().visualItemRect(list().item(row)).center(); }

    static void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        click(list().viewport(), centreOf(row), Qt::LeftButton, modifiers);
    }

    /// A key for whatever has the keyboard.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
    {
        QTest::sendKeyEvent(QTest::Click, focusWindow(), static_cast<Qt::Key>(key), text, modifiers);
    }

    void type(const QString& text)
    {
        for (const QChar letter : text) {
            const int code = letter.toUpper().unicode();
            press(code < 128 ? code : static_cast<int>(Qt::Key_unknown), Qt::NoModifier, letter);
        }
    }

    /// One notch of the mouse wheel, upwards or downwards.
    static void turnMouseWheel(QWidget* under, int notches)
    {
        const QPointF point = under->mapTo(under->window(), under->rect().center());
        QWheelEvent event(point, under->window()->mapToGlobal(point.toPoint()), QPoint(),
                          QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // as from the platform: only then do parents get it, too
        qApp->notify(under->window()->windowHandle(), &event);
    }

    static QMenu& menu() { return *list().findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly); }

    /// Opens the menu with the right button, over a row or over the empty end of the list.
    static void openMenu(int row = -1)
    {
        const QRect place = list().viewport()->rect();
        click(list().viewport(), row < 0 ? QPoint(place.center().x(), place.bottom() - 3) : centreOf(row),
              Qt::RightButton);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu()));
    }

    static void clickEntry(int position)
    {
        click(&menu(), menu().actionGeometry(menu().actions().at(position)).center());
    }

    /// A key press in the render view; true where a hotkey took it.
    static bool pressInView(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        event.ignore();
        ktOSGWidget::pressKey(key, 0, static_cast<int>(modifiers), &event);
        return event.isAccepted();
    }

    /// What the plug-in saves: name, comment, start hotkey and stop hotkey of each animation.
    static Strings saved()
    {
        ktFileIO::getProject().set("_loading", false, false);
        deliver(8192);
        Strings strings;
        ktFileIO::getProject().get<Strings>("Animations", strings);
        return strings;
    }

    static void load(const Strings& strings)
    {
        ktFileIO::getProject().set("Animations", strings, true);
        ktFileIO::getProject().set("_loading", true, false);
        deliver(8192);
    }

private:
    /// A popup takes the keys from the window below it.
    QWindow* focusWindow() const
    {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup->windowHandle() : window.windowHandle();
    }
};

} // namespace kt::test
