#include "tests/sdk/qkt/WheelPrecFixture.h"

#include <QAccessible>
#include <QGridLayout>
#include <QLabel>
#include <QMetaProperty>

namespace
{

class WheelPrecTextTest : public WheelPrecFixture
{
protected:
    QString shown(double step, double value)
    {
        wheel->setSingleStep(step);
        wheel->setValue(value);
        return wheel->text();
    }

    QString nameToldToTools() const
    {
        return QAccessible::queryAccessibleInterface(wheel)->text(QAccessible::Name);
    }
};

TEST_F(WheelPrecTextTest, ShowsAtLeastTheDecimalsOfTheStep)
{
    EXPECT_EQ(shown(1.0, 4.0), "4");
    EXPECT_EQ(shown(0.1, 4.0), "4.0");
    EXPECT_EQ(shown(0.25, 4.0), "4.00");
    EXPECT_EQ(shown(0.009999999776482582, 0.0), "0.00");
    EXPECT_EQ(shown(100.0, 4.0), "4");
}

TEST_F(WheelPrecTextTest, ShowsTheDigitsThatAFinerNumberHas)
{
    EXPECT_EQ(shown(0.1, 0.25), "0.25");
    EXPECT_EQ(shown(0.1, 12.3456789), "12.345679");
    EXPECT_EQ(shown(1.0, 0.5), "0.5");
    EXPECT_EQ(shown(0.1, 0.0000123), "0.0000123");
    EXPECT_EQ(shown(0.1, -0.75), "-0.75");
    EXPECT_EQ(shown(0.1, 5e-12), "5e-12");
    EXPECT_EQ(shown(0.1, 1e300), "1e+300");
    EXPECT_EQ(shown(0.1, 123456789.0), "123456789.0");
}

TEST_F(WheelPrecTextTest, ShowsASinglePrecisionNumberAsTheShortOneItStandsFor)
{
    constexpr double step = 0.009999999776482582;
    EXPECT_EQ(shown(step, 37 * step), "0.37");
    EXPECT_EQ(shown(step, static_cast<double>(0.3F)), "0.30");
    EXPECT_EQ(shown(step, 100 * step), "1.00");
}

TEST_F(WheelPrecTextTest, ShowsNoMinusBeforeZero)
{
    wheel->setValue(1.0);
    wheel->setValue(-0.0);

    EXPECT_EQ(wheel->text(), "0");
}

TEST_F(WheelPrecTextTest, TakesATypedNumberWithReturnAndNotBefore)
{
    type("12.5");
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(wheel->value(), 0.0);

    press(Qt::Key_Return);

    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toDouble(), 12.5);
}

TEST_F(WheelPrecTextTest, TakesATypedNumberWhenTheFocusLeaves)
{
    type("0.125");
    neighbour->setFocus();

    EXPECT_EQ(wheel->value(), 0.125);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(WheelPrecTextTest, HoldsATypedNumberWithinTheBoundsAndShowsThat)
{
    wheel->setMaximum(1.0);

    type("250");
    press(Qt::Key_Enter);

    EXPECT_EQ(wheel->value(), 1.0);
    EXPECT_EQ(wheel->text(), "1");
}

TEST_F(WheelPrecTextTest, DropsATypedTextWithEscape)
{
    wheel->setValue(3.0);
    type("99");
    press(Qt::Key_Escape);

    EXPECT_EQ(wheel->text(), "3");
    neighbour->setFocus();
    EXPECT_EQ(wheel->value(), 3.0);
}

TEST_F(WheelPrecTextTest, LeavesEscapeToTheWindowWhereNothingIsTyped)
{
    field()->setFocus();
    QKeyEvent untouched(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(field(), &untouched);
    EXPECT_FALSE(untouched.isAccepted());

    type("99");
    QKeyEvent asShortcut(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    asShortcut.ignore();
    QApplication::sendEvent(field(), &asShortcut);
    EXPECT_TRUE(asShortcut.isAccepted());
}

TEST_F(WheelPrecTextTest, DropsATextThatIsNoNumber)
{
    wheel->setValue(3.0);
    for (const char* text : {"three", " ", "-", "1e", "nan", "inf", "1e999", "1,5x"}) {
        type(text);
        press(Qt::Key_Return);
        EXPECT_EQ(wheel->value(), 3.0) << text;
        EXPECT_EQ(wheel->text(), "3") << text;
    }
}

TEST_F(WheelPrecTextTest, ColoursATextThatCannotBecomeANumber)
{
    const QColor usual = field()->palette().color(QPalette::Text);

    type("-1e");
    EXPECT_EQ(field()->palette().color(QPalette::Text), usual);
    type("12x");
    EXPECT_NE(field()->palette().color(QPalette::Text), usual);
    press(Qt::Key_Escape);
    EXPECT_EQ(field()->palette().color(QPalette::Text), usual);
}

TEST_F(WheelPrecTextTest, KeepsTheTextBeingTypedWhenTheProgramSetsAnotherValue)
{
    type("4");
    wheel->setValue(8.0);
    EXPECT_EQ(wheel->text(), "4");
    EXPECT_EQ(wheel->value(), 8.0);

    press(Qt::Key_Return);
    EXPECT_EQ(wheel->value(), 4.0);
}

TEST_F(WheelPrecTextTest, ShowsTheProgramsValueWhenTypingEndsWithEscape)
{
    type("4");
    wheel->setValue(8.0);
    press(Qt::Key_Escape);

    EXPECT_EQ(wheel->text(), "8");
    EXPECT_EQ(wheel->value(), 8.0);
}

TEST_F(WheelPrecTextTest, StepsFromTheTypedNumber)
{
    type("10");
    press(Qt::Key_Up);

    EXPECT_EQ(wheel->value(), 11.0);
    EXPECT_EQ(wheel->text(), "11");
}

TEST_F(WheelPrecTextTest, MovesTheCursorWithHomeWhileTyping)
{
    wheel->setMinimum(0.0);
    type("10");
    press(Qt::Key_Home);
    QTest::keyClicks(field(), "2");
    press(Qt::Key_Return);

    EXPECT_EQ(wheel->value(), 210.0);
}

TEST_F(WheelPrecTextTest, ReadsAndShowsNumbersInItsLocaleAndReadsTheProgramsPointToo)
{
    wheel->setLocale(QLocale(QLocale::German));
    wheel->setSingleStep(0.1);
    EXPECT_EQ(wheel->text(), "0,0");

    type("2,5");
    press(Qt::Key_Return);
    EXPECT_EQ(wheel->value(), 2.5);
    EXPECT_EQ(wheel->text(), "2,5");

    type("1.500"); // not one thousand and five hundred
    press(Qt::Key_Return);
    EXPECT_EQ(wheel->value(), 1.5);
}

TEST_F(WheelPrecTextTest, IsASpinBoxWithValueBoundsAndStepForAssistiveTools)
{
    wheel->setMinimum(0.0);
    wheel->setMaximum(1.0);
    wheel->setSingleStep(0.1);
    wheel->setValue(0.5);

    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(wheel);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::SpinBox);
    EXPECT_EQ(told->text(QAccessible::Value), "0.5");
    QAccessibleValueInterface* number = told->valueInterface();
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->minimumValue().toDouble(), 0.0);
    EXPECT_EQ(number->maximumValue().toDouble(), 1.0);
    EXPECT_EQ(number->minimumStepSize().toDouble(), 0.1);
    number->setCurrentValue(0.75);
    EXPECT_EQ(wheel->value(), 0.75);
}

TEST_F(WheelPrecTextTest, IsNamedByPropertyByBuddyOrByTheLabelBeforeIt)
{
    EXPECT_EQ(nameToldToTools(), QString());

    QWidget form(&window);
    auto* grid = new QGridLayout(&form);
    grid->addWidget(new QLabel("Cycle Interval"), 0, 0);
    grid->addWidget(wheel, 0, 1);
    EXPECT_EQ(nameToldToTools(), "Cycle Interval");
    wheel->setFocus();
    EXPECT_EQ(field()->accessibleName(), "Cycle Interval"); // what a reader says on entering the field

    QLabel buddy("&Length", &form);
    buddy.setBuddy(wheel);
    EXPECT_EQ(nameToldToTools(), "Length");

    wheel->setAccessibleName("Duration");
    EXPECT_EQ(nameToldToTools(), "Duration");
    wheel->setParent(&window);
}

} // namespace
