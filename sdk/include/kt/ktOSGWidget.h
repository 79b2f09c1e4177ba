#pragma once

#include <kt/Export.h>

class QEvent;

/// The render view's key presses. GUI thread.
class KT_EXPORT ktOSGWidget
{
public:
    /// Gets the Qt key code, the number of presses that this one repeats (0 for a first press), the
    /// Qt::KeyboardModifiers held, and the event, or null where there is none. A callback that uses the press
    /// accepts the event.
    using PressKeyCB = void (*)(int key, int repeat, int modifiers, QEvent* event);

    /// The same callback twice is kept once; null is ignored.
    static void addMGLWPressKeyCB(PressKeyCB callback);

    /// An unknown callback is ignored.
    static void subMGLWPressKeyCB(PressKeyCB callback);

    /// For the host's view: reports a press to every callback, in order of registration. An exception of one
    /// is logged.
    static void pressKey(int key, int repeat, int modifiers, QEvent* event);

    /// How many callbacks are registered.
    static int countCallbacks();
};
