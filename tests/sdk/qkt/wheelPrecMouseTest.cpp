#include "tests/sdk/qkt/WheelPrecFixture.h"

#include <QScrollArea>
#include <QScrollBar>

namespace
{

constexpr int notchWidth = 6;
constexpr int mouseNotch = 120;

class WheelPrecMouseTest : public WheelPrecFixture
{
};

TEST_F(WheelPrecMouseTest, StepsOnceForEachNotchDragged)
{
    wheel->setSingleStep(0.25);

    drag(4 * notchWidth);
    EXPECT_EQ(wheel->value(), 1.0);
    EXPECT_EQ(changes.count(), 4);

    drag(-6 * notchWidth);
    EXPECT_EQ(wheel->value(), -0.5);
}

TEST_F(WheelPrecMouseTest, DragsTenTimesAsFarWithShiftAndATenthWithCtrl)
{
    drag(2 * notchWidth, Qt::ShiftModifier);
    EXPECT_EQ(wheel->value(), 20.0);
    drag(3 * notchWidth, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(wheel->value(), 20.3);
    EXPECT_EQ(wheel->text(), "20.3");
}

TEST_F(WheelPrecMouseTest, DragsNoFurtherThanItsBoundsAndComesBackAtOnce)
{
    wheel->setMaximum(2.0);

    drag(10 * notchWidth);
    EXPECT_EQ(wheel->value(), 2.0);
    EXPECT_EQ(changes.count(), 2);
    drag(-notchWidth);
    EXPECT_EQ(wheel->value(), 1.0);
}

TEST_F(WheelPrecMouseTest, ChangesNothingWhenTheThumbWheelIsOnlyClicked)
{
    drag(notchWidth - 1);
    QTest::mouseClick(thumb(), Qt::RightButton);

    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(field()->hasFocus()); // so that keys and the mouse's wheel go on from here
}

TEST_F(WheelPrecMouseTest, DragsFromTheTypedNumber)
{
    type("10");
    drag(notchWidth);

    EXPECT_EQ(wheel->value(), 11.0);
}

TEST_F(WheelPrecMouseTest, DoesNotMoveWhileItIsDisabled)
{
    wheel->setEnabled(false);
    drag(3 * notchWidth);
    turnMouseWheel(field(), mouseNotch);

    EXPECT_EQ(wheel->value(), 0.0);
}

TEST_F(WheelPrecMouseTest, StepsWithTheMouseWheelAnywhereOnItWhileItHasTheFocus)
{
    field()->setFocus();

    turnMouseWheel(field(), mouseNotch);
    turnMouseWheel(thumb(), 2 * mouseNotch);
    turnMouseWheel(wheel, -mouseNotch);
    EXPECT_EQ(wheel->value(), 2.0);

    turnMouseWheel(field(), mouseNotch, Qt::ShiftModifier);
    EXPECT_EQ(wheel->value(), 12.0);
}

TEST_F(WheelPrecMouseTest, AddsUpTheSmallTurnsOfAFineMouseWheel)
{
    field()->setFocus();

    for (int i = 0; i < 3; ++i)
        turnMouseWheel(field(), mouseNotch / 4);
    EXPECT_EQ(wheel->value(), 0.0);
    turnMouseWheel(field(), mouseNotch / 4);
    EXPECT_EQ(wheel->value(), 1.0);
}

TEST_F(WheelPrecMouseTest, LeavesTheMouseWheelToTheScrollAreaWithoutTheFocus)
{
    QScrollArea area;
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(wheel);
    page->setFixedHeight(2000);
    area.setWidget(page);
    area.resize(300, 200);
    area.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
    QApplication::setActiveWindow(&area);
    area.setFocus();

    turnMouseWheel(field(), -mouseNotch);
    EXPECT_EQ(wheel->value(), 0.0);
    const int scrolled = area.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);

    field()->setFocus();
    turnMouseWheel(field(), -mouseNotch);
    EXPECT_EQ(wheel->value(), -1.0);
    EXPECT_EQ(area.verticalScrollBar()->value(), scrolled);
}

TEST_F(WheelPrecMouseTest, TakesOnePlaceInTheTabOrder)
{
    QKTWheelPrec other(&window);
    window.layout()->addWidget(&other);
    other.show();
    QWidget::setTabOrder(neighbour, &other);
    QWidget::setTabOrder(&other, wheel);
    neighbour->setFocus();

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(other.isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), field());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(other.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(WheelPrecMouseTest, KeepsTheTextBesideTheThumbWheelInAWideRow)
{
    wheel->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    window.resize(1200, 100);
    window.layout()->activate();

    EXPECT_GT(wheel->width(), 1000);
    EXPECT_LT(thumb()->geometry().right(), 400);
    EXPECT_GE(thumb()->geometry().left(), field()->geometry().right());
}

} // namespace
