#include <kt/ktShortcut.h>

#include <QKeySequence>

QString ktShortcut::convertKey(int key, int modifiers, bool portable)
{
    if (key == 0)
        return {};
    return QKeySequence(modifiers | key)
        .toString(portable ? QKeySequence::PortableText : QKeySequence::NativeText);
}
