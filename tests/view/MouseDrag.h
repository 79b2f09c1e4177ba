#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace kt::test
{

/// Presses the left button at `from`, moves in steps of ten pixels and releases it at `to`; all of it reaches
/// the widget, wherever the display's pointer is.
inline void drag(QWidget* widget, const QPoint& from, const QPoint& to)
{
    const auto send = [widget](QEvent::Type type, const QPoint& point, Qt::MouseButton button,
                               Qt::MouseButtons held) {
        QMouseEvent event(type, point, widget->mapToGlobal(point), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    const int steps = (to - from).manhattanLength() / 10;
    for (int step = 1; step <= steps; ++step)
        send(QEvent::MouseMove, from + (to - from) * step / steps, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

} // namespace kt::test
