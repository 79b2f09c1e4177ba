#pragma once

#include <kt/Export.h>

#include <QString>

/// Key texts as the host shows them.
class KT_EXPORT ktShortcut
{
public:
    /// The text of a Qt key code with Qt keyboard modifiers (0 for none), such as "Ctrl+Return". `portable`
    /// true gives the text that is the same in every language, false the user's. Empty for key code 0.
    static QString convertKey(int key, int modifiers, bool portable);
};
