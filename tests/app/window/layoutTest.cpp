#include "tests/app/window/WindowFixture.h"

#include <kt/ktModuleBase.h>

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace
{

class LayoutTest : public kt::test::WindowFixture
{
protected:
    /// With the plug-in, and no layout to remember.
    void openForTheFirstTime()
    {
        close();
        QSettings().clear();
        open(true);
    }
};

} // namespace

TEST_F(LayoutTest, TheViewHasMostOfTheWindowAtTheFirstStart)
{
    openForTheFirstTime();

    EXPECT_GE(window->view().height(), window->height() * 45 / 100);
    EXPECT_NEAR(window->sceneTree().width(), window->width() * 18 / 100, 10);
}

TEST_F(LayoutTest, AWindowOfTheFirstSizeShowsThePanelWhole)
{
    openForTheFirstTime();
    if (window->height() < 900)
        GTEST_SKIP() << "the display is too small for it";

    const auto* area = window->findChild<QScrollArea*>("scrollArea");

    EXPECT_TRUE(QTest::qWaitFor([&] { return area->verticalScrollBar()->maximum() == 0; }));
}

TEST_F(LayoutTest, TheLastPanelOfAPluginIsInFrontAtTheFirstStart)
{
    openForTheFirstTime();

    const QWidget* panel = ktModuleBase::modules().at(0)->getWidget()->parentWidget();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->visibleRegion().isEmpty(); }));
    EXPECT_TRUE(dock("Log")->visibleRegion().isEmpty());
}

TEST_F(LayoutTest, IsNoLargerThanTheScreen)
{
    EXPECT_LE(window->width(), window->screen()->availableSize().width());
    EXPECT_LE(window->height(), window->screen()->availableSize().height());
}

TEST_F(LayoutTest, ComesBackAsItWasClosed)
{
    dock("Scene")->close();
    dock("Messages")->setFloating(true);
    close();

    open();

    EXPECT_FALSE(dock("Scene")->isVisible());
    EXPECT_TRUE(dock("Messages")->isFloating());
    EXPECT_TRUE(dock("Sensors")->isVisible());
}

TEST_F(LayoutTest, AResetBringsTheSizesOfTheFirstStartBack)
{
    window->resizeDocks({dock("Log")}, {500}, Qt::Vertical);
    window->resizeDocks({dock("Scene")}, {500}, Qt::Horizontal);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->sceneTree().width() > 450; }));

    window->docks().resetLayout();

    EXPECT_TRUE(QTest::qWaitFor([&] { return window->sceneTree().width() < 280; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->view().height() >= window->height() * 45 / 100; }));
}
