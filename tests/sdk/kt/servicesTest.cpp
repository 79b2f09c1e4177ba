#include "tests/support/LogRecorder.h"
#include "tests/support/Scene.h"

#include <kt/ktIconManager.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <kt/ktScript.h>
#include <kt/ktSelectionManager.h>
#include <kt/ktShortcut.h>

#include <gtest/gtest.h>

#include <QEvent>
#include <QIcon>

#include <functional>
#include <optional>
#include <stdexcept>

namespace
{

using Lines = std::vector<std::string>;

TEST(LogTest, LinesAreFormattedAndGoToTheSinkWithTheirLevel)
{
    const kt::test::LogRecorder log;

    ktLog::info("%s", "plain");
    ktLog::warning("%d of %d", 1, 2);
    ktLog::error("%s!", std::string(5000, 'x').c_str());

    EXPECT_EQ(log.lines(),
              (Lines{"info: plain", "warning: 1 of 2", "error: " + std::string(5000, 'x') + "!"}));
}

TEST(LogTest, WithoutASinkWarningsAndErrorsGoToTheStandardErrorStream)
{
    ktLog::setSink(nullptr);
    testing::internal::CaptureStderr();

    ktLog::info("quiet");
    ktLog::warning("careful");
    ktLog::error("broken");

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "careful\nbroken\n");
}

TEST(ShortcutTest, KeysHaveTheirTexts)
{
    EXPECT_EQ(ktShortcut::convertKey(Qt::Key_Return, 0, false), "Return");
    EXPECT_EQ(ktShortcut::convertKey(Qt::Key_Space, 0, false), "Space");
    EXPECT_EQ(ktShortcut::convertKey(Qt::Key_Delete, 0, true), "Del");
    EXPECT_EQ(ktShortcut::convertKey(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, true),
              "Ctrl+Shift+A");
    EXPECT_TRUE(ktShortcut::convertKey(0, Qt::ControlModifier, true).isEmpty());
}

TEST(IconTest, AKnownNameHasAnIconAndOthersHaveNone)
{
    EXPECT_FALSE(ktIconManager::getIcon("ModuleAnimation", "").isNull());
    EXPECT_TRUE(ktIconManager::getIcon("Nowhere", "").isNull());
    EXPECT_TRUE(ktIconManager::getIcon("ModuleAnimation", "nowhere").isNull());
    EXPECT_TRUE(ktIconManager::getIcon("", "").isNull());
}

int selections = 0;

TEST(SelectionManagerTest, KeepsTheNodesInOrderAndTellsOfIt)
{
    const ktNodePtr a(osg::Node::create());
    const ktNodePtr b(osg::Node::create());
    selections = 0;
    ktSelectionManager::setChangeHandler([] { ++selections; });

    ktSelectionManager::selectNodes({b, {}, a});
    EXPECT_EQ(ktSelectionManager::selectedNodes(), (std::vector<ktNodePtr>{b, a}));
    EXPECT_EQ(selections, 1);
    ktSelectionManager::selectNodes({});
    EXPECT_TRUE(ktSelectionManager::selectedNodes().empty());
    EXPECT_EQ(selections, 2);

    ktSelectionManager::setChangeHandler(nullptr);
    ktSelectionManager::selectNodes({});
    EXPECT_EQ(selections, 2);
}

Lines presses;

void quietPress(int key, int repeat, int modifiers, QEvent* event)
{
    presses.push_back(std::to_string(key) + "," + std::to_string(repeat) + "," + std::to_string(modifiers));
    if (event)
        event->accept();
}

void throwingPress(int, int, int, QEvent*)
{
    presses.push_back("throwing");
    throw std::runtime_error("no way");
}

TEST(RenderViewTest, PressesReachEveryCallbackInOrder)
{
    const kt::test::LogRecorder log;
    presses.clear();
    ktOSGWidget::addMGLWPressKeyCB(throwingPress);
    ktOSGWidget::addMGLWPressKeyCB(quietPress);
    ktOSGWidget::addMGLWPressKeyCB(quietPress);
    ktOSGWidget::addMGLWPressKeyCB(nullptr);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 2);
    QEvent event(QEvent::KeyPress);
    event.ignore();

    ktOSGWidget::pressKey(1, 2, 3, &event);

    EXPECT_EQ(presses, (Lines{"throwing", "1,2,3"}));
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(log.lines(), Lines{"error: key press: a callback of sdkKtTest failed: no way"});
    ktOSGWidget::subMGLWPressKeyCB(throwingPress);
    ktOSGWidget::subMGLWPressKeyCB(quietPress);
    ktOSGWidget::subMGLWPressKeyCB(quietPress);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
}

TEST(ScriptTest, StatementsGoToTheRunner)
{
    static std::string ran;
    ktScript::setRunner([](const char* statement) {
        ran = statement;
        return ran != "bad";
    });

    EXPECT_TRUE(ktScript::run("good"));
    EXPECT_EQ(ran, "good");
    EXPECT_FALSE(ktScript::run("bad"));
    EXPECT_FALSE(ktScript::run(nullptr));
    ktScript::setRunner(nullptr);
}

TEST(ScriptTest, WithoutAnInterpreterTheLogTells)
{
    const kt::test::LogRecorder log;

    EXPECT_FALSE(ktScript::run("print 1"));

    EXPECT_EQ(log.lines(), Lines{"warning: no script interpreter to run: print 1"});
}

Lines told;
std::function<void(bool)> duringTelling;

void tellFirst(bool destroy)
{
    told.push_back(destroy ? "first: end" : "first: ready");
    if (duringTelling)
        duringTelling(destroy);
}

void tellSecond(bool destroy)
{
    told.push_back(destroy ? "second: end" : "second: ready");
}

class PythonInitTest : public testing::Test
{
protected:
    PythonInitTest()
    {
        told.clear();
        duringTelling = nullptr;
    }
};

TEST_F(PythonInitTest, CallbacksAreToldOnceOfEachState)
{
    const ktPythonInit first(tellFirst);
    const ktPythonInit nobody(nullptr);
    ktPythonInit::notify(true);
    EXPECT_TRUE(told.empty()) << "it was never ready";

    ktPythonInit::notify(false);
    ktPythonInit::notify(false);
    const ktPythonInit second(tellSecond);
    ktPythonInit::notify(false);
    EXPECT_EQ(told, (Lines{"first: ready", "second: ready"}));

    ktPythonInit::notify(true);
    ktPythonInit::notify(true);
    EXPECT_EQ(told, (Lines{"first: ready", "second: ready", "first: end", "second: end"}));
}

TEST_F(PythonInitTest, OneThatThrowsKeepsNoneOfTheOthersFromTheirTurn)
{
    const kt::test::LogRecorder log;
    const ktPythonInit first([](bool) { throw std::runtime_error("no luck"); });
    const ktPythonInit second([](bool) { throw 1; });
    const ktPythonInit third(tellFirst);

    ktPythonInit::notify(false);

    EXPECT_EQ(told, Lines{"first: ready"});
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_NE(log.lines()[0].find("no luck"), std::string::npos);
    ktPythonInit::notify(true);
}

TEST_F(PythonInitTest, OneThatIsGoneIsNotCalled)
{
    {
        const ktPythonInit first(tellFirst);
    }
    ktPythonInit::notify(false);

    EXPECT_TRUE(told.empty());
}

TEST_F(PythonInitTest, OneThatGoesMeanwhileIsNotCalled)
{
    const ktPythonInit first(tellFirst);
    std::optional<ktPythonInit> second(tellSecond); // its storage stays readable
    duringTelling = [&](bool) { second.reset(); };

    ktPythonInit::notify(false);

    EXPECT_EQ(told, Lines{"first: ready"});
    ktPythonInit::notify(true);
}

} // namespace
