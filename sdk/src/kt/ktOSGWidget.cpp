#include <kt/ktOSGWidget.h>

#include "kt/CallbackList_p.h"

namespace
{

// Never destroyed: plug-ins take their callbacks back while the process ends.
CallbackList<ktOSGWidget::PressKeyCB>& pressKeyCallbacks()
{
    static auto* const instance = new CallbackList<ktOSGWidget::PressKeyCB>;
    return *instance;
}

} // namespace

void ktOSGWidget::addMGLWPressKeyCB(PressKeyCB callback)
{
    pressKeyCallbacks().add(callback);
}

void ktOSGWidget::subMGLWPressKeyCB(PressKeyCB callback)
{
    pressKeyCallbacks().remove(callback);
}

void ktOSGWidget::pressKey(int key, int repeat, int modifiers, QEvent* event)
{
    pressKeyCallbacks().call("key press", key, repeat, modifiers, event);
}

void ktOSGWidget::dropCallbacks(const std::function<bool(PressKeyCB)>& isGone)
{
    pressKeyCallbacks().removeIf(isGone);
}

int ktOSGWidget::countCallbacks()
{
    return pressKeyCallbacks().count();
}
