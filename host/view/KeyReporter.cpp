#include "host/view/KeyReporter.h"

#include <kt/ktOSGWidget.h>

#include <QKeyEvent>

namespace kthost
{

bool KeyReporter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return pressed(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        return released(static_cast<QKeyEvent&>(*event));
    case QEvent::FocusOut:
        _accepted.clear(); // the releases go elsewhere
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool KeyReporter::pressed(QKeyEvent& event)
{
    const int key = event.key();
    if (event.isAutoRepeat())
        return _accepted.count(key) != 0;
    // Qt hands key events over accepted; the callbacks say by accepting that one is used up.
    event.ignore();
    ktOSGWidget::pressKey(key, 0, static_cast<int>(event.modifiers()), &event);
    if (event.isAccepted()) {
        _accepted.insert(key);
        return true;
    }
    _accepted.erase(key);
    event.accept();
    return false;
}

bool KeyReporter::released(QKeyEvent& event)
{
    const auto found = _accepted.find(event.key());
    if (found == _accepted.end())
        return false;
    if (!event.isAutoRepeat())
        _accepted.erase(found);
    return true;
}

} // namespace kthost
