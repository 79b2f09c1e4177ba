#pragma once

#include <kt/Export.h>

#include <functional>

class QEvent;

/// The render view's key presses. GUI thread.
class KT_EXPORT ktOSGWidget
{
public:
    /// Gets the Qt key code, how often the press was repeated before by holding the key (the stand-alone host
    /// reports first presses only: 0), the Qt::KeyboardModifiers held, and the event, or null where there is
    /// none. A callback that uses the press accepts the event.
    using PressKeyCB = void (*)(int key, int repeat, int modifiers, QEvent* event);

    /// The same callback twice is kept once; null is ignored.
    static void addMGLWPressKeyCB(PressKeyCB callback);

    /// An unknown callback is ignored.
    static void subMGLWPressKeyCB(PressKeyCB callback);

    /// For the host's view: reports a press to every callback, in order of registration. An exception of one
    /// is logged.
    static void pressKey(int key, int repeat, int modifiers, QEvent* event);

    /// For the host: takes back every callback for which `isGone` answers true; see ktController.
    static void dropCallbacks(const std::function<bool(PressKeyCB)>& isGone);

    /// How many callbacks are registered.
    static int countCallbacks();
};
