#include "persistence/ktHotkey.h"

#include <gtest/gtest.h>

#include <QString>

namespace
{

constexpr int shift = 0x02000000;
constexpr int ctrl = 0x04000000;
constexpr int alt = 0x08000000;

struct Hotkey
{
    int key;
    int modifiers;

    bool operator==(const Hotkey& other) const { return key == other.key && modifiers == other.modifiers; }
};

void PrintTo(const Hotkey& hotkey, std::ostream* out)
{
    *out << std::hex << "(0x" << hotkey.key << ", 0x" << hotkey.modifiers << ")";
}

Hotkey decoded(const QString& text)
{
    int key = 12345;
    Qt::KeyboardModifiers modifiers = Qt::MetaModifier; // both have to be written over
    ktHotkey::mapHotkey(text, key, modifiers);
    return {key, static_cast<int>(modifiers)};
}

TEST(HotkeyTextTest, EveryModifierWordIsKnown)
{
    EXPECT_EQ(decoded("Shift A"), (Hotkey{0x41, shift}));
    EXPECT_EQ(decoded("Alt A"), (Hotkey{0x41, alt}));
    EXPECT_EQ(decoded("Ctrl A"), (Hotkey{0x41, ctrl}));
    EXPECT_EQ(decoded("Shift-Alt A"), (Hotkey{0x41, shift | alt}));
    EXPECT_EQ(decoded("Shift-Ctrl A"), (Hotkey{0x41, shift | ctrl}));
    EXPECT_EQ(decoded("Alt-Ctrl A"), (Hotkey{0x41, alt | ctrl}));
}

TEST(HotkeyTextTest, LetterCaseDoesNotCount)
{
    EXPECT_EQ(decoded("alt-ctrl 7"), (Hotkey{0x37, alt | ctrl}));
    EXPECT_EQ(decoded("SHIFT-CTRL a"), decoded("Shift-Ctrl A"));
    EXPECT_EQ(decoded("sHiFt z"), (Hotkey{0x5A, shift}));
}

TEST(HotkeyTextTest, TheOrderOfTwoModifiersCounts)
{
    EXPECT_EQ(decoded("Ctrl-Alt A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Ctrl-Shift A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Alt-Shift A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Shift-Alt-Ctrl A"), (Hotkey{0x41, 0}));
}

TEST(HotkeyTextTest, AnUnknownWordIsNoModifier)
{
    EXPECT_EQ(decoded("Meta A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Shif A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Shifty A"), (Hotkey{0x41, 0}));
}

TEST(HotkeyTextTest, EveryLetterAndDigitIsItsCharacterCode)
{
    for (char c = '0'; c <= '9'; ++c)
        EXPECT_EQ(decoded(QString("Ctrl ") + QChar(c)), (Hotkey{c, ctrl}));
    for (char c = 'A'; c <= 'Z'; ++c)
        EXPECT_EQ(decoded(QString("Ctrl ") + QChar(c)), (Hotkey{c, ctrl}));
}

TEST(HotkeyTextTest, AnyOtherCharacterIsKeyZero)
{
    for (const QString& key :
         {QString("/"), QString(":"), QString("@"), QString("["), QString("-"), QString("_")})
        EXPECT_EQ(decoded("Ctrl " + key), (Hotkey{0, ctrl})) << key.toStdString();
    EXPECT_EQ(decoded("Ctrl " + QString(QChar(0xC4))), (Hotkey{0, ctrl}));
    EXPECT_EQ(decoded("Ctrl " + QString(QChar(0x0141))), (Hotkey{0, ctrl})) << "its low byte is that of A";
    EXPECT_EQ(decoded("Ctrl " + QString(QChar(0xFF21))), (Hotkey{0, ctrl}));
}

TEST(HotkeyTextTest, AKeyAloneHasNoModifier)
{
    EXPECT_EQ(decoded("A"), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded(" A"), (Hotkey{0x41, 0}));
}

TEST(HotkeyTextTest, NoTextIsNoHotkey)
{
    EXPECT_EQ(decoded(""), (Hotkey{0, 0}));
    EXPECT_EQ(decoded(QString()), (Hotkey{0, 0}));
    EXPECT_EQ(decoded(" "), (Hotkey{0, 0}));
}

TEST(HotkeyTextTest, AModifierAloneIsReadAsAKey)
{
    EXPECT_EQ(decoded("SHIFT"), (Hotkey{0x53, 0}));
    EXPECT_EQ(decoded("Shift "), (Hotkey{0x53, 0}));
    EXPECT_EQ(decoded("Alt "), (Hotkey{0x41, 0}));
    EXPECT_EQ(decoded("Ctrl "), (Hotkey{0x43, 0}));
}

TEST(HotkeyTextTest, OnlyTheFirstCharacterOfTheKeyCounts)
{
    EXPECT_EQ(decoded("Ctrl F1"), (Hotkey{0x46, ctrl}));
    EXPECT_EQ(decoded("Ctrl 1F"), (Hotkey{0x31, ctrl}));
}

TEST(HotkeyTextTest, TwoSpacesMakeTheFirstWordTheKey)
{
    EXPECT_EQ(decoded("Shift  A"), (Hotkey{0x53, 0}));
}

TEST(HotkeyTextTest, WhatFollowsTheSecondWordIsIgnored)
{
    EXPECT_EQ(decoded("Shift A B"), (Hotkey{0x41, shift}));
}

TEST(HotkeyTextTest, OnlyASpaceSeparates)
{
    EXPECT_EQ(decoded("Shift\tA"), (Hotkey{0x53, 0}));
}

TEST(HotkeyTextTest, AnUpperCaseOfTwoCharactersCountsByItsFirst)
{
    EXPECT_EQ(decoded("Ctrl " + QString(QChar(0xDF))), (Hotkey{0x53, ctrl})) << "sharp s becomes SS";
}

TEST(HotkeyTextTest, TheIntegerFormAgrees)
{
    int key = 12345;
    int modifiers = 12345;

    ktHotkey::mapHotkey("Alt-Ctrl 7", key, modifiers);

    EXPECT_EQ(key, 0x37);
    EXPECT_EQ(modifiers, alt | ctrl);
}

} // namespace
