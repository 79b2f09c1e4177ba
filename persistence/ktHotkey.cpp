#include "persistence/ktHotkey.h"

#include <QString>

namespace
{

struct ModifierWord
{
    const char* word;
    Qt::KeyboardModifiers modifiers;
};

Qt::KeyboardModifiers modifiersOf(const QString& word)
{
    static const ModifierWord words[] = {
        {"SHIFT", Qt::ShiftModifier},
        {"ALT", Qt::AltModifier},
        {"CTRL", Qt::ControlModifier},
        {"SHIFT-ALT", Qt::ShiftModifier | Qt::AltModifier},
        {"SHIFT-CTRL", Qt::ShiftModifier | Qt::ControlModifier},
        {"ALT-CTRL", Qt::AltModifier | Qt::ControlModifier},
    };
    for (const ModifierWord& known : words) {
        if (word == QLatin1String(known.word))
            return known.modifiers;
    }
    return Qt::NoModifier;
}

int keyOf(const QString& text)
{
    const ushort code = text.isEmpty() ? ushort(0) : text.at(0).unicode();
    const bool isKey = (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
    return isKey ? code : 0; // the Qt key codes of digits and letters are their characters'
}

} // namespace

void ktHotkey::mapHotkey(const QString& text, int& key, Qt::KeyboardModifiers& modifiers)
{
    const QString upper = text.toUpper();
    QString word = upper.section(QLatin1Char(' '), 0, 0);
    QString keyText = upper.section(QLatin1Char(' '), 1, 1);
    if (keyText.isEmpty()) {
        keyText = word;
        word.clear();
    }
    modifiers = modifiersOf(word);
    key = keyOf(keyText);
}

void ktHotkey::mapHotkey(const QString& text, int& key, int& modifiers)
{
    Qt::KeyboardModifiers mapped;
    mapHotkey(text, key, mapped);
    modifiers = static_cast<int>(mapped);
}
