#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"

#include <gtest/gtest.h>

namespace
{

class FormLookTest : public testing::Test
{
protected:
    static void expectPolicy(const QWidget* widget, QSizePolicy::Policy horizontal,
                             QSizePolicy::Policy vertical)
    {
        const std::string name = widget->objectName().toStdString();
        EXPECT_EQ(widget->sizePolicy().horizontalPolicy(), horizontal) << name;
        EXPECT_EQ(widget->sizePolicy().verticalPolicy(), vertical) << name;
        EXPECT_EQ(widget->sizePolicy().horizontalStretch(), 0) << name;
        EXPECT_EQ(widget->sizePolicy().verticalStretch(), 0) << name;
    }

    static void expectPlain(const QFrame* frame)
    {
        EXPECT_EQ(frame->frameShape(), QFrame::NoFrame) << frame->objectName().toStdString();
        EXPECT_EQ(frame->frameShadow(), QFrame::Plain) << frame->objectName().toStdString();
    }

    ktAnimationGUIW panel{nullptr, {}};
};

TEST_F(FormLookTest, TheWindowHasItsSizeAndNoMargins)
{
    EXPECT_EQ(panel.size(), QSize(744, 447));
    EXPECT_EQ(panel.gridLayout_7->contentsMargins(), QMargins(0, 0, 0, 0));
}

TEST_F(FormLookTest, TheListGrowsFromAMinimum)
{
    expectPolicy(panel._animationList, QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
    EXPECT_EQ(panel._animationList->minimumSize(), QSize(110, 0));
    EXPECT_EQ(panel._animationList->sizePolicy().hasHeightForWidth(),
              QListWidget().sizePolicy().hasHeightForWidth());
}

TEST_F(FormLookTest, TheScrollAreaIsPlainAndAlwaysHasItsBar)
{
    expectPlain(panel.scrollArea);
    EXPECT_EQ(panel.scrollArea->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(panel.scrollArea->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    EXPECT_TRUE(panel.scrollArea->widgetResizable());
}

TEST_F(FormLookTest, LabelsAreRightAlignedInAColumn)
{
    for (const QLabel* label : {panel.textLabel1_2, panel.textLabel1_3, panel.textLabel1_4,
                                panel.textLabel1_5, panel.textLabel1_6}) {
        EXPECT_EQ(label->minimumSize(), QSize(130, 0));
        EXPECT_EQ(label->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        EXPECT_FALSE(label->wordWrap());
    }
}

TEST_F(FormLookTest, FieldsHaveTheirPolicies)
{
    expectPolicy(panel._comment, QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    for (const QComboBox* box : {panel._startModifier, panel._startKey, panel._stopModifier, panel._stopKey})
        expectPolicy(box, QSizePolicy::Preferred, QSizePolicy::Preferred);
    EXPECT_EQ(panel._cycle_interval->sizePolicy(), panel._fraction->sizePolicy());
}

TEST_F(FormLookTest, FillersTakeUpTheRoom)
{
    for (const QFrame* filler : {panel.frame_2, panel.frame_3}) {
        expectPlain(filler);
        expectPolicy(filler, QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    expectPlain(panel.frame_4);
    expectPolicy(panel.frame_4, QSizePolicy::Preferred, QSizePolicy::Expanding);
}

} // namespace
