#include "panel/ktAnimationGUIW.h"
#include "tests/support/HostCalls.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktController.h>
#include <kt/ktOSGWidget.h>

#include <QCoreApplication>
#include <QTranslator>

namespace
{

using kt::test::HostCalls;
using Lines = std::vector<std::string>;

const Lines registrations{"dock", "addCB", "addMGLWPressKeyCB", "subCB", "subMGLWPressKeyCB"};
const char* const dockCall =
    "dock VRML Animation|Animation|ktAnimationGUI|Vidhint_Animation|icon|VRML Animation|0|1|no menu";

class ConstructionOrderTest : public kt::test::ModuleFixture
{
protected:
    ConstructionOrderTest()
    {
        destroyModule();
        HostCalls::reset();
    }
    ~ConstructionOrderTest() override { HostCalls::reset(); }
};

TEST_F(ConstructionOrderTest, ThePanelIsDockedThenTheCallbacksAreRegisteredInOrder)
{
    const kt::test::OpenAnimation made;

    EXPECT_EQ(HostCalls::linesOf(registrations),
              (Lines{dockCall, "addCB animationStart", "addCB animationStop", "addCB animationToggle",
                     "addCB animationPause", "addCB animationContinue", "addCB animationReset",
                     "addMGLWPressKeyCB"}));
}

TEST_F(ConstructionOrderTest, TheIconIsThePlainOneOfTheModule)
{
    const kt::test::OpenAnimation made;

    EXPECT_EQ(HostCalls::linesOf({"getIcon"}), Lines{"getIcon ModuleAnimation|"});
}

TEST_F(ConstructionOrderTest, TheModuleIsThereFromTheFirstCallOn)
{
    ktAnimation::_the = nullptr;
    std::size_t known = 0;
    const ktAnimation* the = nullptr;
    HostCalls::onCall() = [&](const std::string& line) {
        if (line == "getMainWindow") {
            known = ktModuleBase::modules().size();
            the = ktAnimation::_the;
        }
    };

    const kt::test::OpenAnimation made;

    EXPECT_EQ(known, 1u);
    EXPECT_EQ(the, &made);
}

TEST_F(ConstructionOrderTest, ThePanelIsFilledBeforeItIsDockedAndConnectedBeforeTheCallbacks)
{
    QString titleAtDocking;
    bool enabledAtCallbacks = true;
    HostCalls::onCall() = [&](const std::string& line) {
        if (line == dockCall)
            titleAtDocking = ktAnimation::_main->windowTitle();
        if (line == "addCB animationStart")
            enabledAtCallbacks = ktAnimation::_main->_comment->isEnabled();
    };

    const kt::test::OpenAnimation made;

    EXPECT_EQ(titleAtDocking, "VRML Animation");
    EXPECT_FALSE(enabledAtCallbacks);
}

TEST_F(ConstructionOrderTest, NothingOfTheSceneOrTheProjectIsAskedFor)
{
    const kt::test::OpenAnimation made;

    EXPECT_TRUE(HostCalls::linesOf({"getRootNode", "findNodes", "getProject", "getSimulationTime"}).empty());
}

/// Answers the dock's title only where it is asked for in the module's context.
class DockTitle : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int count) const override
    {
        const bool isDockTitle = QString(context) == "ktAnimation" && QString(text) == "VRML Animation";
        return isDockTitle && !disambiguation && count == -1 ? QString("Translated") : QString();
    }
};

TEST_F(ConstructionOrderTest, TheDocksTitleIsTranslatedInTheModulesContext)
{
    DockTitle translator;
    QCoreApplication::installTranslator(&translator);

    const kt::test::OpenAnimation made;

    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(
        HostCalls::linesOf({"dock"}),
        Lines{"dock VRML Animation|Animation|ktAnimationGUI|Vidhint_Animation|icon|Translated|0|1|no menu"});
    EXPECT_EQ(made.getWidget()->windowTitle(), "VRML Animation");
}

TEST_F(ConstructionOrderTest, DestructionTakesTheKeyCallbackBackFirst)
{
    {
        const kt::test::OpenAnimation made;
        HostCalls::reset();
    }

    EXPECT_EQ(HostCalls::lines(), (Lines{"subMGLWPressKeyCB", "subCB animationStart", "subCB animationStop",
                                         "subCB animationToggle", "subCB animationPause",
                                         "subCB animationContinue", "subCB animationReset"}));
}

TEST_F(ConstructionOrderTest, TheModuleIsWholeUntilItsCallbacksAreGone)
{
    std::size_t known = 0;
    std::size_t held = 0;
    {
        kt::test::OpenAnimation made;
        made._animations.emplace_back();
        HostCalls::onCall() = [&](const std::string& line) {
            if (line == "subCB animationReset") {
                known = ktModuleBase::modules().size();
                held = made._animations.size();
            }
        };
    }

    EXPECT_EQ(known, 1u);
    EXPECT_EQ(held, 1u);
}

} // namespace
