#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"

#include <gtest/gtest.h>

#include <QMetaMethod>

namespace
{

class FormTreeTest : public testing::Test
{
protected:
    /// The widget stands alone in this cell of the grid, one row high and one column wide.
    void expectAt(const QGridLayout* grid, QObject* widget, int row, int column)
    {
        QLayoutItem* item = grid->itemAtPosition(row, column);
        ASSERT_NE(item, nullptr) << widget->objectName().toStdString();
        const QObject* found = item->widget() ? static_cast<QObject*>(item->widget()) : item->layout();
        EXPECT_EQ(found, widget);
        EXPECT_EQ(item->alignment(), Qt::Alignment());
        int r = 0, c = 0, rows = 0, columns = 0;
        grid->getItemPosition(grid->indexOf(item), &r, &c, &rows, &columns);
        EXPECT_EQ(rows, 1);
        EXPECT_EQ(columns, 1);
    }

    ktAnimationGUIW panel{nullptr, {}};
};

template <class T>
void expectMember(const QWidget& panel, T* member, const char* name)
{
    EXPECT_EQ(member->objectName(), name);
    EXPECT_EQ(panel.findChild<T*>(name), member) << name;
    EXPECT_EQ(panel.findChildren<QObject*>(name).size(), 1) << name;
}

TEST_F(FormTreeTest, EveryMemberIsAChildOfItsOwnName)
{
#define KT_EXPECT_MEMBER(member) expectMember(panel, panel.member, #member)
    KT_EXPECT_MEMBER(centralwidget);
    KT_EXPECT_MEMBER(gridLayout_7);
    KT_EXPECT_MEMBER(splitter);
    KT_EXPECT_MEMBER(_animationList);
    KT_EXPECT_MEMBER(scrollArea);
    KT_EXPECT_MEMBER(scrollAreaWidgetContents);
    KT_EXPECT_MEMBER(gridLayout_6);
    KT_EXPECT_MEMBER(collapsibleFrame);
    KT_EXPECT_MEMBER(page);
    KT_EXPECT_MEMBER(gridLayout);
    KT_EXPECT_MEMBER(textLabel1_2);
    KT_EXPECT_MEMBER(_comment);
    KT_EXPECT_MEMBER(collapsibleFrame_2);
    KT_EXPECT_MEMBER(page_2);
    KT_EXPECT_MEMBER(gridLayout_3);
    KT_EXPECT_MEMBER(gridLayout_2);
    KT_EXPECT_MEMBER(textLabel1_3);
    KT_EXPECT_MEMBER(_startModifier);
    KT_EXPECT_MEMBER(_startKey);
    KT_EXPECT_MEMBER(frame_2);
    KT_EXPECT_MEMBER(textLabel1_4);
    KT_EXPECT_MEMBER(_stopModifier);
    KT_EXPECT_MEMBER(_stopKey);
    KT_EXPECT_MEMBER(frame_3);
    KT_EXPECT_MEMBER(collapsibleFrame_3);
    KT_EXPECT_MEMBER(page_3);
    KT_EXPECT_MEMBER(gridLayout_4);
    KT_EXPECT_MEMBER(textLabel1_6);
    KT_EXPECT_MEMBER(_cycle_interval);
    KT_EXPECT_MEMBER(textLabel1_5);
    KT_EXPECT_MEMBER(_fraction);
    KT_EXPECT_MEMBER(frame_4);
    KT_EXPECT_MEMBER(statusbar);
#undef KT_EXPECT_MEMBER
}

TEST_F(FormTreeTest, TheWindowHoldsSplitterAndStatusBar)
{
    EXPECT_EQ(panel.objectName(), "ktAnimationGUI");
    EXPECT_EQ(panel.centralWidget(), panel.centralwidget);
    EXPECT_EQ(panel.statusBar(), panel.statusbar);
    EXPECT_EQ(panel.centralwidget->layout(), panel.gridLayout_7);
    expectAt(panel.gridLayout_7, panel.splitter, 0, 0);
}

TEST_F(FormTreeTest, TheSplitterHasTheListOnTheLeft)
{
    EXPECT_EQ(panel.splitter->orientation(), Qt::Horizontal);
    ASSERT_EQ(panel.splitter->count(), 2);
    EXPECT_EQ(panel.splitter->widget(0), panel._animationList);
    EXPECT_EQ(panel.splitter->widget(1), panel.scrollArea);
}

TEST_F(FormTreeTest, TheScrollAreaHoldsThreeFramesAndAFiller)
{
    EXPECT_EQ(panel.scrollArea->widget(), panel.scrollAreaWidgetContents);
    EXPECT_EQ(panel.scrollAreaWidgetContents->layout(), panel.gridLayout_6);
    expectAt(panel.gridLayout_6, panel.collapsibleFrame, 0, 0);
    expectAt(panel.gridLayout_6, panel.collapsibleFrame_2, 1, 0);
    expectAt(panel.gridLayout_6, panel.collapsibleFrame_3, 2, 0);
    expectAt(panel.gridLayout_6, panel.frame_4, 3, 0);
}

TEST_F(FormTreeTest, TheFirstFrameHoldsTheComment)
{
    EXPECT_TRUE(panel.collapsibleFrame->isAncestorOf(panel.page));
    EXPECT_EQ(panel.page->layout(), panel.gridLayout);
    expectAt(panel.gridLayout, panel.textLabel1_2, 0, 0);
    expectAt(panel.gridLayout, panel._comment, 0, 1);
}

TEST_F(FormTreeTest, TheSecondFrameHoldsTheHotkeys)
{
    EXPECT_TRUE(panel.collapsibleFrame_2->isAncestorOf(panel.page_2));
    EXPECT_EQ(panel.page_2->layout(), panel.gridLayout_3);
    expectAt(panel.gridLayout_3, panel.gridLayout_2, 0, 0);
    expectAt(panel.gridLayout_2, panel.textLabel1_3, 0, 0);
    expectAt(panel.gridLayout_2, panel._startModifier, 0, 1);
    expectAt(panel.gridLayout_2, panel._startKey, 0, 2);
    expectAt(panel.gridLayout_2, panel.frame_2, 0, 3);
    expectAt(panel.gridLayout_2, panel.textLabel1_4, 1, 0);
    expectAt(panel.gridLayout_2, panel._stopModifier, 1, 1);
    expectAt(panel.gridLayout_2, panel._stopKey, 1, 2);
    expectAt(panel.gridLayout_2, panel.frame_3, 1, 3);
}

TEST_F(FormTreeTest, TheThirdFrameHoldsTheWheels)
{
    EXPECT_TRUE(panel.collapsibleFrame_3->isAncestorOf(panel.page_3));
    EXPECT_EQ(panel.page_3->layout(), panel.gridLayout_4);
    expectAt(panel.gridLayout_4, panel.textLabel1_6, 0, 0);
    expectAt(panel.gridLayout_4, panel._cycle_interval, 0, 1);
    expectAt(panel.gridLayout_4, panel.textLabel1_5, 1, 0);
    expectAt(panel.gridLayout_4, panel._fraction, 1, 1);
}

TEST_F(FormTreeTest, TheFocusGoesThroughTheFieldsInOrder)
{
    QWidget* const order[] = {panel.scrollArea,    panel._comment, panel._startModifier,  panel._startKey,
                              panel._stopModifier, panel._stopKey, panel._cycle_interval, panel._fraction};
    std::size_t reached = 0;
    for (QWidget* widget = panel.scrollArea; reached < std::size(order);
         widget = widget->nextInFocusChain()) {
        if (widget == order[reached])
            ++reached;
        else
            ASSERT_EQ(std::find(order + reached, std::end(order), widget), std::end(order))
                << widget->objectName().toStdString() << " comes too early";
        if (widget->nextInFocusChain() == panel.scrollArea)
            break;
    }
    EXPECT_EQ(reached, std::size(order));
}

TEST_F(FormTreeTest, TheWindowsMetaObjectAddsNothing)
{
    const QMetaObject* meta = panel.metaObject();
    EXPECT_STREQ(meta->className(), "ktAnimationGUIW");
    EXPECT_EQ(meta->superClass(), &QMainWindow::staticMetaObject);
    EXPECT_EQ(meta->methodCount(), meta->methodOffset());
    EXPECT_EQ(meta->propertyCount(), meta->propertyOffset());
}

TEST_F(FormTreeTest, TheWindowCastsToItselfAndToItsForm)
{
    EXPECT_EQ(panel.qt_metacast("ktAnimationGUIW"), &panel);
    EXPECT_EQ(panel.qt_metacast("Ui::ktAnimationGUI"), static_cast<Ui::ktAnimationGUI*>(&panel));
    EXPECT_NE(panel.qt_metacast("Ui::ktAnimationGUI"), static_cast<void*>(&panel));
    EXPECT_EQ(panel.qt_metacast("QMainWindow"), static_cast<QMainWindow*>(&panel));
    EXPECT_EQ(panel.qt_metacast("Ui_ktAnimationGUI"), nullptr);
}

TEST(FormTest, KeepsTheNameOfAWindowThatHasOne)
{
    QMainWindow window;
    window.setObjectName("mine");
    Ui::ktAnimationGUI form;

    form.setupUi(&window);

    EXPECT_EQ(window.objectName(), "mine");
}

} // namespace
