#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktController.h>
#include <kt/ktOSGWidget.h>

#include <QDockWidget>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

namespace
{

class LifecycleTest : public kt::test::ModuleFixture
{
};

TEST_F(LifecycleTest, TheModuleIsKnownToTheHostAsAnimation)
{
    ASSERT_EQ(ktModuleBase::modules().size(), 1u);
    EXPECT_EQ(ktModuleBase::modules()[0], &module());
    EXPECT_EQ(module().moduleName(), "Animation");
    EXPECT_EQ(module().moduleTitle(), "Animation");
    EXPECT_TRUE(module().modulePixmap().isNull());
}

TEST_F(LifecycleTest, TheStaticsAreTheModuleAndItsPanel)
{
    EXPECT_EQ(ktAnimation::_the, &module());
    EXPECT_EQ(module().getWidget(), ktAnimation::_main);
    EXPECT_NE(ktAnimation::_main, nullptr);
}

TEST_F(LifecycleTest, ItStartsEmptyWithNothingSelected)
{
    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_FALSE(panel()._comment->isEnabled());
    for (const QComboBox* box :
         {panel()._startModifier, panel()._startKey, panel()._stopModifier, panel()._stopKey})
        EXPECT_FALSE(box->isEnabled());
    EXPECT_TRUE(panel()._cycle_interval->isEnabled());
    EXPECT_TRUE(panel()._fraction->isEnabled());
}

TEST_F(LifecycleTest, ConstructionDoesNotScanTheScene)
{
    destroyModule();
    addTimeSensor("Door");

    const kt::test::OpenAnimation fresh;

    EXPECT_TRUE(fresh._animations.empty());
}

TEST_F(LifecycleTest, ThePanelIsDockedInTheMainWindow)
{
    const auto* dock = qobject_cast<QDockWidget*>(panel().parentWidget());
    ASSERT_NE(dock, nullptr);
    EXPECT_EQ(dock->parentWidget(), &window);
    EXPECT_EQ(dock->widget(), &panel());
    EXPECT_EQ(dock->windowTitle(), "VRML Animation");
    EXPECT_EQ(panel().windowTitle(), "VRML Animation");
}

TEST_F(LifecycleTest, TheWheelsHaveTheirStepsAndBounds)
{
    const QKTWheelPrec untouched;
    EXPECT_EQ(panel()._cycle_interval->singleStep(), 0.1);
    EXPECT_EQ(panel()._cycle_interval->minimum(), 0.0);
    EXPECT_EQ(panel()._cycle_interval->maximum(), untouched.maximum());
    EXPECT_EQ(panel()._fraction->singleStep(), 0.009999999776482582);
    EXPECT_EQ(panel()._fraction->minimum(), 0.0);
    EXPECT_EQ(panel()._fraction->maximum(), 1.0);
}

TEST_F(LifecycleTest, TheWheelsHoldTheirBounds)
{
    panel()._fraction->setValue(1.5);
    EXPECT_EQ(panel()._fraction->value(), 1.0);
    panel()._fraction->setValue(-0.5);
    EXPECT_EQ(panel()._fraction->value(), 0.0);
    panel()._cycle_interval->setValue(-1.0);
    EXPECT_EQ(panel()._cycle_interval->value(), 0.0);
    panel()._cycle_interval->setValue(1e12);
    EXPECT_EQ(panel()._cycle_interval->value(), 1e12);
}

TEST_F(LifecycleTest, SevenCallbacksAreRegisteredAndTakenBack)
{
    EXPECT_EQ(ktController::countCallbacks(), 6);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 1);

    destroyModule();

    EXPECT_EQ(ktController::countCallbacks(), 0);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
    EXPECT_TRUE(ktModuleBase::modules().empty());
}

TEST_F(LifecycleTest, DestructionLeavesThePanelToTheMainWindow)
{
    const QPointer<QWidget> widget = &panel();
    const ktAnimation* the = ktAnimation::_the;
    const ktAnimationGUIW* main = ktAnimation::_main;

    destroyModule();

    EXPECT_FALSE(widget.isNull());
    EXPECT_EQ(ktAnimation::_the, the);
    EXPECT_EQ(ktAnimation::_main, main);
}

TEST_F(LifecycleTest, AModuleWhosePanelIsGoneCanBeDestroyed)
{
    docks.remove(&panel());

    destroyModule();

    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(LifecycleTest, InitDoesNothing)
{
    addTimeSensor("Door");
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    module().init();
    module().update();
    module().loop();

    EXPECT_TRUE(records().isEmpty());
    EXPECT_EQ(rebuilds.count(), 0);
}

TEST(ModuleMetaObjectTest, TheSlotsHaveTheirOrder)
{
    const QMetaObject& meta = ktAnimation::staticMetaObject;
    QStringList slots_;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        EXPECT_EQ(meta.method(i).methodType(), QMetaMethod::Slot);
        EXPECT_EQ(meta.method(i).access(), QMetaMethod::Public);
        slots_ << meta.method(i).methodSignature();
    }

    EXPECT_EQ(slots_,
              (QStringList{"animationSelected()", "animationDelete()",
                           "animationRenamed(QListWidgetItem*,int,QString)", "startKeyChange(QString)",
                           "stopKeyChange(QString)", "commentChange(QString)", "animationDisplayList()",
                           "animationDisplayProperties()", "changedCycleInterval(double)",
                           "changedFraction(double)"}));
}

TEST_F(LifecycleTest, TheModuleCastsByItsClassNames)
{
    EXPECT_STREQ(module().metaObject()->className(), "ktAnimation");
    EXPECT_EQ(module().qt_metacast("ktAnimation"), static_cast<ktAnimation*>(&module()));
    EXPECT_EQ(module().qt_metacast("ktModuleBase"), static_cast<ktModuleBase*>(&module()));
    EXPECT_EQ(module().qt_metacast("QObject"), static_cast<QObject*>(&module()));
    EXPECT_EQ(module().qt_metacast("ktanimation"), nullptr);
}

} // namespace
