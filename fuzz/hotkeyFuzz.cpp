// Any text is a hotkey or none: what it is decoded to, a plain text of the same decodes to, and a press of it
// finds the record.
#include "fuzz/Bytes.h"
#include "fuzz/Expect.h"
#include "fuzz/PluginRig.h"
#include "persistence/ktHotkey.h"

#include <kt/ktOSGWidget.h>

#include <QString>

#include <array>
#include <string>
#include <vector>

namespace
{

using kt::fuzz::Bytes;
using kt::fuzz::expect;
using kt::fuzz::PluginRig;

struct Decoded
{
    int key = 0;
    int modifiers = 0;

    bool operator==(const Decoded& other) const { return key == other.key && modifiers == other.modifiers; }
};

/// Both forms, over whatever was there before.
Decoded decode(const QString& text)
{
    Decoded decoded{-1, -1};
    ktHotkey::mapHotkey(text, decoded.key, decoded.modifiers);
    int key = 12345;
    Qt::KeyboardModifiers modifiers = Qt::MetaModifier;
    ktHotkey::mapHotkey(text, key, modifiers);
    expect(decoded == Decoded{key, static_cast<int>(modifiers)}, "both forms say the same");
    return decoded;
}

/// The word that the panel offers for these modifiers; null where there is none.
const char* wordOf(int modifiers)
{
    struct Entry
    {
        unsigned modifiers;
        const char* word;
    };
    static constexpr std::array<Entry, 7> entries{{{0, ""},
                                                   {0x02000000, "Shift"},
                                                   {0x04000000, "Ctrl"},
                                                   {0x08000000, "Alt"},
                                                   {0x06000000, "Shift-Ctrl"},
                                                   {0x0A000000, "Shift-Alt"},
                                                   {0x0C000000, "Alt-Ctrl"}}};
    for (const Entry& entry : entries) {
        if (entry.modifiers == static_cast<unsigned>(modifiers))
            return entry.word;
    }
    return nullptr;
}

bool isKey(int key)
{
    return key == 0 || (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
}

void checkText(const QString& text)
{
    const Decoded decoded = decode(text);
    const char* const word = wordOf(decoded.modifiers);
    expect(isKey(decoded.key) && word, "a key and modifiers of those that there are");
    const QString plain = QLatin1String(word) + QLatin1String(" ") +
                          (decoded.key == 0 ? QStringLiteral("-") : QString(QChar(decoded.key)));
    expect(decode(plain) == decoded, "a plain text says the same");
    expect(decode(text.toUpper()) == decoded, "letter case does not count");
    expect(decode(text + QStringLiteral(" x")).modifiers == decoded.modifiers || !text.contains(u' '),
           "a third word does not count");
}

/// A press of `hotkey` on a record with these two: it starts, or it toggles, or it is not for the record.
bool isActiveAfter(bool isActive, const Decoded& hotkey, const Decoded& start, const Decoded& stop)
{
    if (hotkey == start)
        return true;
    return hotkey == stop ? !isActive : isActive;
}

/// The two texts as hotkeys of two records, the other way round in the second; both are pressed, and what
/// else the input says.
void press(Bytes& bytes, const std::string& start, const std::string& stop)
{
    PluginRig& rig = PluginRig::instance();
    rig.reset();
    rig.addSensor("Door");
    rig.addSensor("Fan");
    rig.load(std::vector<std::string>{"Door", "", start, stop, "Fan", "", stop, start});
    const Decoded first = decode(QString::fromUtf8(start.c_str()));
    const Decoded second = decode(QString::fromUtf8(stop.c_str()));
    for (const Decoded& hotkey :
         {first, second, second, first, Decoded{bytes.number<int>(), bytes.number<int>()}}) {
        const auto before = rig.moments();
        ktOSGWidget::pressKey(hotkey.key, 0, hotkey.modifiers, nullptr);
        const auto after = rig.moments();
        expect(after[0].isActive == isActiveAfter(before[0].isActive, hotkey, first, second) &&
                   after[1].isActive == isActiveAfter(before[1].isActive, hotkey, second, first),
               "a press finds the records that it is for");
    }
    rig.select(bytes.byte() % 2); // shows the texts
    rig.check();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    const std::string start = bytes.text();
    const std::string stop = bytes.text();
    checkText(QString::fromUtf8(start.data(), static_cast<int>(start.size())));
    checkText(QString::fromLatin1(stop.data(), static_cast<int>(stop.size())));
    press(bytes, start, stop);

    std::string rest = bytes.rest();
    rest.resize(rest.size() / 2 * 2); // halves of surrogate pairs, too
    checkText(QString(reinterpret_cast<const QChar*>(rest.data()), static_cast<int>(rest.size() / 2)));
    return 0;
}
