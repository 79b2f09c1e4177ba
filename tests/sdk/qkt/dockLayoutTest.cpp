#include "tests/sdk/qkt/DockFixture.h"
#include "tests/sdk/qkt/KeptSettings.h"

namespace
{

/// Each block of a test is a run of a host; the runs share their settings.
class DockLayoutTest : public testing::Test
{
protected:
    /// A run that leaves Tree at the left, Console hidden and Panel floating.
    static void arrange()
    {
        DockedWindow run;
        run.add("Tree", Qt::RightDockWidgetArea);
        QDockWidget* tree = run.window.findChild<QDockWidget*>("Tree");
        QDockWidget* console = run.add("Console", Qt::BottomDockWidgetArea);
        QDockWidget* panel = run.add("Panel", Qt::NoDockWidgetArea);
        run.show();
        run.window.addDockWidget(Qt::LeftDockWidgetArea, tree);
        console->close();
        panel->setFloating(true);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(panel));
        panel->resize(333, 222);
        run.window.resize(900, 600);
        QApplication::processEvents();
        ASSERT_TRUE(run.docks->saveLayout());
    }

    static void expectArranged(const DockedWindow& run)
    {
        QDockWidget* tree = run.window.findChild<QDockWidget*>("Tree");
        EXPECT_EQ(run.window.dockWidgetArea(tree), Qt::LeftDockWidgetArea);
        EXPECT_TRUE(tree->isVisible());
        EXPECT_FALSE(run.window.findChild<QDockWidget*>("Console")->isVisible());
        EXPECT_TRUE(run.window.findChild<QDockWidget*>("Panel")->isFloating());
        EXPECT_TRUE(run.window.findChild<QDockWidget*>("Panel")->isVisible());
        EXPECT_EQ(run.window.findChild<QDockWidget*>("Panel")->size(), QSize(333, 222));
        EXPECT_EQ(run.window.size(), QSize(900, 600));
    }

    static void addAll(DockedWindow& run)
    {
        run.add("Tree", Qt::RightDockWidgetArea);
        run.add("Console", Qt::BottomDockWidgetArea);
        run.add("Panel", Qt::NoDockWidgetArea);
    }

    kt::test::KeptSettings settings;
};

TEST_F(DockLayoutTest, IsTakenUpByTheNextRun)
{
    arrange();
    DockedWindow run;
    addAll(run);
    EXPECT_TRUE(run.docks->restoreLayout());
    run.show();

    expectArranged(run);
    EXPECT_FALSE(run.entry("Console")->isChecked());
}

TEST_F(DockLayoutTest, IsTakenUpByDocksThatComeLater)
{
    arrange();
    DockedWindow run;
    EXPECT_TRUE(run.docks->restoreLayout());
    addAll(run);
    run.show();

    expectArranged(run);
}

TEST_F(DockLayoutTest, KeepsTheOrderAndTheTopOfTabs)
{
    {
        DockedWindow run;
        QDockWidget* first = run.add("First");
        run.add("Second");
        run.show();
        first->raise();
        QApplication::processEvents();
        ASSERT_TRUE(run.docks->saveLayout());
    }
    DockedWindow run;
    QDockWidget* first = run.add("First");
    QDockWidget* second = run.add("Second");
    ASSERT_TRUE(run.docks->restoreLayout());
    run.show();

    EXPECT_EQ(run.window.tabifiedDockWidgets(first), QList<QDockWidget*>{second});
    QTRY_VERIFY(!first->visibleRegion().isEmpty());
    EXPECT_TRUE(second->visibleRegion().isEmpty());
}

TEST_F(DockLayoutTest, PutsADockThatItDoesNotKnowInItsDefaultPlace)
{
    arrange();
    DockedWindow run;
    addAll(run);
    QDockWidget* before = run.add("Before", Qt::LeftDockWidgetArea);
    ASSERT_TRUE(run.docks->restoreLayout());
    QDockWidget* after = run.add("After", Qt::RightDockWidgetArea);
    run.show();

    EXPECT_EQ(run.window.dockWidgetArea(before), Qt::LeftDockWidgetArea);
    EXPECT_TRUE(before->isVisible());
    EXPECT_EQ(run.window.dockWidgetArea(after), Qt::RightDockWidgetArea);
    EXPECT_TRUE(after->isVisible());
}

TEST_F(DockLayoutTest, KeepsThePlaceOfADockThatIsMissingInOneRun)
{
    arrange();
    {
        DockedWindow without;
        without.add("Console", Qt::BottomDockWidgetArea);
        without.add("Panel", Qt::NoDockWidgetArea);
        ASSERT_TRUE(without.docks->restoreLayout());
        without.show();
        ASSERT_TRUE(without.docks->saveLayout());
    }
    DockedWindow run;
    addAll(run);
    ASSERT_TRUE(run.docks->restoreLayout());
    run.show();

    expectArranged(run);
}

TEST_F(DockLayoutTest, IsResetToTheDefaults)
{
    arrange();
    DockedWindow run;
    addAll(run);
    QDockWidget* hidden = run.add("Hidden", Qt::RightDockWidgetArea, false);
    ASSERT_TRUE(run.docks->restoreLayout());
    run.show();
    hidden->show();

    run.entry("&Reset Layout")->trigger();

    QDockWidget* tree = run.window.findChild<QDockWidget*>("Tree");
    QDockWidget* console = run.window.findChild<QDockWidget*>("Console");
    QDockWidget* panel = run.window.findChild<QDockWidget*>("Panel");
    EXPECT_EQ(run.window.dockWidgetArea(tree), Qt::RightDockWidgetArea);
    EXPECT_TRUE(console->isVisible());
    EXPECT_FALSE(panel->isFloating());
    EXPECT_EQ(run.window.tabifiedDockWidgets(console), QList<QDockWidget*>{panel});
    EXPECT_FALSE(hidden->isVisible());
}

TEST_F(DockLayoutTest, ChangesNothingWhereThereIsNoneOrItIsBroken)
{
    DockedWindow run;
    addAll(run);
    EXPECT_FALSE(run.docks->restoreLayout());

    QSettings().setValue("windows/layout", QByteArray("\x00\x00\x00\xff garbage", 12));
    EXPECT_FALSE(run.docks->restoreLayout());
    run.show();

    QDockWidget* tree = run.window.findChild<QDockWidget*>("Tree");
    EXPECT_EQ(run.window.dockWidgetArea(tree), Qt::RightDockWidgetArea);
    EXPECT_TRUE(tree->isVisible());
    EXPECT_EQ(run.window.size(), QSize(1000, 700));
}

TEST_F(DockLayoutTest, IsNotKeptForAnApplicationWithoutAnOrganization)
{
    QCoreApplication::setOrganizationName(QString());
    DockedWindow run;
    addAll(run);

    EXPECT_FALSE(run.docks->saveLayout());
    EXPECT_FALSE(run.docks->restoreLayout());
}

} // namespace
