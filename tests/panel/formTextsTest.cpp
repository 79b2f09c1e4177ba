#include "panel/ktAnimationGUIW.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>

namespace
{

/// Puts the context before each text, and notes a disambiguation.
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* disambiguation, int) const override
    {
        const QString marked = QString("%1|%2").arg(context, text);
        return disambiguation ? marked + "|" + disambiguation : marked;
    }
};

QStringList itemsOf(const QComboBox* box)
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items << box->itemText(i);
    return items;
}

class FormTextsTest : public testing::Test
{
protected:
    ktAnimationGUIW panel{nullptr, {}};
};

TEST_F(FormTextsTest, TitleCaptionsAndLabels)
{
    EXPECT_EQ(panel.windowTitle(), "VRML Animation");
    EXPECT_EQ(panel.collapsibleFrame->caption(), "Properties");
    EXPECT_EQ(panel.textLabel1_2->text(), "Comment");
    EXPECT_EQ(panel.collapsibleFrame_2->caption(), "Hotkeys");
    EXPECT_EQ(panel.textLabel1_3->text(), "Start");
    EXPECT_EQ(panel.textLabel1_4->text(), "(Un)Pause");
    EXPECT_EQ(panel.collapsibleFrame_3->caption(), "Animation");
    EXPECT_EQ(panel.textLabel1_6->text(), "Cycle Interval");
    EXPECT_EQ(panel.textLabel1_5->text(), "Keyframe");
}

TEST_F(FormTextsTest, TheModifierBoxes)
{
    const QStringList items{"", "Shift", "Ctrl", "Alt", "Shift-Ctrl", "Shift-Alt", "Alt-Ctrl"};
    EXPECT_EQ(itemsOf(panel._startModifier), items);
    EXPECT_EQ(itemsOf(panel._stopModifier), items);
}

TEST_F(FormTextsTest, TheKeyBoxes)
{
    QStringList items{""};
    for (char c = 'A'; c <= 'Z'; ++c)
        items << QString(QChar(c));
    for (char c = '1'; c <= '9'; ++c)
        items << QString(QChar(c));
    items << "0";
    EXPECT_EQ(items.size(), 37);
    EXPECT_EQ(itemsOf(panel._startKey), items);
    EXPECT_EQ(itemsOf(panel._stopKey), items);
    EXPECT_EQ(panel._startKey->findText("1"), 27);
    EXPECT_EQ(panel._startKey->findText("0"), 36);
}

TEST_F(FormTextsTest, EveryBoxStartsOnItsEmptyItem)
{
    for (const QComboBox* box : {panel._startModifier, panel._startKey, panel._stopModifier, panel._stopKey})
        EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(FormTextsTest, RetranslatingPutsTheBoxesBackAndDoublesNothing)
{
    for (QComboBox* box : {panel._startModifier, panel._startKey, panel._stopModifier, panel._stopKey})
        box->setCurrentIndex(3);

    panel.retranslateUi(&panel);

    for (const QComboBox* box : {panel._startModifier, panel._startKey, panel._stopModifier, panel._stopKey})
        EXPECT_EQ(box->currentIndex(), 0);
    EXPECT_EQ(panel._startModifier->count(), 7);
    EXPECT_EQ(panel._stopKey->count(), 37);
}

TEST_F(FormTextsTest, EveryTextIsTranslatedInTheFormsContext)
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);

    panel.retranslateUi(&panel);

    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(panel.windowTitle(), "ktAnimationGUI|VRML Animation");
    EXPECT_EQ(panel.collapsibleFrame->caption(), "ktAnimationGUI|Properties");
    EXPECT_EQ(panel.collapsibleFrame_2->caption(), "ktAnimationGUI|Hotkeys");
    EXPECT_EQ(panel.collapsibleFrame_3->caption(), "ktAnimationGUI|Animation");
    EXPECT_EQ(panel.textLabel1_2->text(), "ktAnimationGUI|Comment");
    EXPECT_EQ(panel.textLabel1_3->text(), "ktAnimationGUI|Start");
    EXPECT_EQ(panel.textLabel1_4->text(), "ktAnimationGUI|(Un)Pause");
    EXPECT_EQ(panel.textLabel1_5->text(), "ktAnimationGUI|Keyframe");
    EXPECT_EQ(panel.textLabel1_6->text(), "ktAnimationGUI|Cycle Interval");
    for (const QComboBox* box :
         {panel._startModifier, panel._startKey, panel._stopModifier, panel._stopKey}) {
        EXPECT_EQ(box->itemText(0), "") << "the empty item is not translated";
        for (int i = 1; i < box->count(); ++i)
            EXPECT_TRUE(box->itemText(i).startsWith("ktAnimationGUI|")) << box->itemText(i).toStdString();
    }
}

} // namespace
