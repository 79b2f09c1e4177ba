#pragma once

#include <Qt>

class QString;

/// Hotkeys as text: an optional modifier word, one space, a key of one character, such as "Shift-Ctrl A".
class ktHotkey
{
public:
    /// Decodes a text; letter case does not count. Words: Shift, Alt, Ctrl, Shift-Alt, Shift-Ctrl, Alt-Ctrl;
    /// another word is no modifier. Keys: the first character, A to Z or 0 to 9, as its Qt key code; another
    /// one, or none, is 0. A text without a key after the space is read as a key alone. Both outputs are
    /// always written.
    static void mapHotkey(const QString& text, int& key, Qt::KeyboardModifiers& modifiers);

    /// The same with the modifiers as the integer that records keep.
    static void mapHotkey(const QString& text, int& key, int& modifiers);
};
