#include "module/ktAnimation.h"

#include <QEvent>

void ktAnimation::pressedKey(int key, int, int modifiers, QEvent* event)
{
    for (const ktAnimationInfo& animation : _the->_animations) {
        if (animation.startKey == key && animation.startModifier == modifiers)
            _the->startAnimation(animation.name.toLatin1().constData());
        else if (animation.stopKey == key && animation.stopModifier == modifiers)
            // Toggles, so that the same key lets a halted animation go on.
            _the->toggleAnimation(animation.name.toLatin1().constData());
        else
            continue;
        if (event)
            event->accept();
    }
}
