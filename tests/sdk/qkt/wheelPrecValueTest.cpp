#include "tests/sdk/qkt/WheelPrecFixture.h"

#include <cmath>
#include <limits>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

class WheelPrecValueTest : public WheelPrecFixture
{
};

TEST_F(WheelPrecValueTest, KeepsTheNumberExactlyAsItWasSet)
{
    wheel->setValue(1.0 / 3.0);

    EXPECT_EQ(wheel->value(), 1.0 / 3.0);
    EXPECT_EQ(wheel->text(), "0.333333");

    field()->setFocus();
    press(Qt::Key_Return);
    press(Qt::Key_End); // typing on, and back to the shortened text: no other number
    QTest::keyClicks(field(), "5");
    press(Qt::Key_Backspace);
    ASSERT_EQ(wheel->text(), "0.333333");
    neighbour->setFocus();
    EXPECT_EQ(wheel->value(), 1.0 / 3.0);
}

TEST_F(WheelPrecValueTest, TellsEachChangeOnce)
{
    wheel->setValue(2.5);
    wheel->setValue(2.5);
    wheel->setValue(-1.0);

    ASSERT_EQ(changes.count(), 2);
    EXPECT_EQ(changes[0][0].toDouble(), 2.5);
    EXPECT_EQ(changes[1][0].toDouble(), -1.0);
}

TEST_F(WheelPrecValueTest, ShowsButDoesNotTellChangesWhileItsSignalsAreBlocked)
{
    wheel->blockSignals(true);
    wheel->setValue(7.0);
    wheel->blockSignals(false);

    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(wheel->value(), 7.0);
    EXPECT_EQ(wheel->text(), "7");
}

TEST_F(WheelPrecValueTest, HasNoBoundsAtFirst)
{
    wheel->setValue(-1e300);
    EXPECT_EQ(wheel->value(), -1e300);
    wheel->setValue(std::numeric_limits<double>::max());
    EXPECT_EQ(wheel->value(), std::numeric_limits<double>::max());
}

TEST_F(WheelPrecValueTest, HoldsTheValueWithinItsBounds)
{
    wheel->setMinimum(0.0);
    wheel->setMaximum(1.0);

    wheel->setValue(-0.5);
    EXPECT_EQ(wheel->value(), 0.0);
    wheel->setValue(1.5);
    EXPECT_EQ(wheel->value(), 1.0);
}

TEST_F(WheelPrecValueTest, MovesTheValueIntoNewBounds)
{
    wheel->setValue(5.0);
    changes.clear();

    wheel->setMaximum(3.0);
    EXPECT_EQ(wheel->value(), 3.0);
    wheel->setMinimum(4.0); // crosses the maximum and takes it along

    EXPECT_EQ(wheel->value(), 4.0);
    EXPECT_EQ(wheel->maximum(), 4.0);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(WheelPrecValueTest, IgnoresWhatIsNotANumber)
{
    wheel->setMinimum(0.0);
    wheel->setMaximum(1.0);
    wheel->setValue(0.5);

    wheel->setValue(std::nan(""));
    wheel->setMinimum(std::nan(""));
    wheel->setMaximum(std::nan(""));
    wheel->setSingleStep(std::nan(""));
    wheel->setSingleStep(0.0);
    wheel->setSingleStep(-1.0);
    wheel->setSingleStep(infinity);

    EXPECT_EQ(wheel->value(), 0.5);
    EXPECT_EQ(wheel->minimum(), 0.0);
    EXPECT_EQ(wheel->maximum(), 1.0);
    EXPECT_EQ(wheel->singleStep(), 1.0);
}

TEST_F(WheelPrecValueTest, TakesInfinityForTheBoundAndIgnoresItWithoutOne)
{
    wheel->setValue(infinity);
    wheel->setValue(-infinity);
    EXPECT_EQ(wheel->value(), 0.0);

    wheel->setMaximum(10.0);
    wheel->setValue(infinity);
    EXPECT_EQ(wheel->value(), 10.0);

    wheel->setMaximum(infinity); // no bound again
    wheel->setValue(1e9);
    EXPECT_EQ(wheel->value(), 1e9);
}

TEST_F(WheelPrecValueTest, StepsToWholeMultiplesOfASinglePrecisionStep)
{
    constexpr double step = 0.009999999776482582;
    wheel->setSingleStep(step);
    wheel->setMinimum(0.0);
    wheel->setMaximum(1.0);
    field()->setFocus();

    for (int k = 1; k <= 100; ++k) {
        press(Qt::Key_Up);
        ASSERT_EQ(wheel->value(), k * step);
    }
    EXPECT_LT(wheel->value(), 1.0);
    press(Qt::Key_Up);
    EXPECT_EQ(wheel->value(), 1.0);
    press(Qt::Key_Up);
    EXPECT_EQ(wheel->value(), 1.0);
    EXPECT_EQ(changes.count(), 101);
}

TEST_F(WheelPrecValueTest, GathersNoRoundingErrorWhenAListenerWritesTheValueBack)
{
    wheel->setSingleStep(0.1);
    QObject::connect(wheel, &QKTWheelPrec::valueChanged, wheel, &QKTWheelPrec::setValue);

    for (int k = 0; k < 8; ++k)
        wheel->stepBy(1);
    EXPECT_EQ(wheel->value(), 0.8); // adding up 0.1 eight times gives 0.7999999999999999
    wheel->stepBy(-8);
    EXPECT_EQ(wheel->value(), 0.0);
}

TEST_F(WheelPrecValueTest, StepsBackToExactlyZero)
{
    wheel->setSingleStep(0.1);
    wheel->setValue(0.3);

    wheel->stepBy(-3);

    EXPECT_EQ(wheel->value(), 0.0);
    EXPECT_EQ(wheel->text(), "0.0");
}

TEST_F(WheelPrecValueTest, StepsBySinglesTensAndTenthsByKey)
{
    wheel->setSingleStep(0.5);
    field()->setFocus();

    press(Qt::Key_Up);
    EXPECT_EQ(wheel->value(), 0.5);
    press(Qt::Key_PageUp);
    EXPECT_EQ(wheel->value(), 5.5);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(wheel->value(), 10.5);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(wheel->value(), 10.55);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down);
    EXPECT_EQ(wheel->value(), 0.0);
}

TEST_F(WheelPrecValueTest, GoesToItsBoundsWithHomeAndEnd)
{
    wheel->setMinimum(-2.0);
    wheel->setMaximum(3.0);
    field()->setFocus();

    press(Qt::Key_End);
    EXPECT_EQ(wheel->value(), 3.0);
    press(Qt::Key_Home);
    EXPECT_EQ(wheel->value(), -2.0);
}

TEST_F(WheelPrecValueTest, LeavesTheValueAloneWithHomeAndEndWhereThereIsNoBound)
{
    wheel->setValue(12.0);
    field()->setFocus();

    press(Qt::Key_End);
    press(Qt::Key_Home);

    EXPECT_EQ(wheel->value(), 12.0);
}

TEST_F(WheelPrecValueTest, IsAQtPropertyForEditors)
{
    EXPECT_EQ(wheel->metaObject()->userProperty().name(), std::string("value"));
    wheel->setProperty("value", 3.5);
    EXPECT_EQ(wheel->value(), 3.5);
}

} // namespace
