#include "tests/sdk/qkt/DockFixture.h"

#include <QContextMenuEvent>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>

#include <memory>

namespace
{

class DockWindowManagerTest : public testing::Test, protected DockedWindow
{
protected:
    /// The menu that a right click at this point of the dock opens, or null.
    static QMenu* rightClick(QDockWidget* dock, const QPoint& point)
    {
        QContextMenuEvent click(QContextMenuEvent::Mouse, point, dock->mapToGlobal(point));
        QApplication::sendEvent(dock, &click);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }

    static QAction* named(const QMenu* menu, const char* text)
    {
        for (QAction* action : menu->actions())
            if (action->text() == QLatin1String(text))
                return action;
        return nullptr;
    }
};

TEST_F(DockWindowManagerTest, DocksAWidgetWithItsTitleIconAndHelp)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    QLabel widget("panel");
    QDockWidget* dock = docks->add("Panel", "Tools", &widget, "Help_Panel", QIcon(pixmap), "The Panel",
                                   Qt::LeftDockWidgetArea, true, nullptr);
    show();

    EXPECT_EQ(dock->widget(), &widget);
    EXPECT_TRUE(widget.isVisible());
    EXPECT_EQ(dock->objectName(), "Panel");
    EXPECT_EQ(dock->windowTitle(), "The Panel");
    EXPECT_EQ(dock->property("helpId").toString(), "Help_Panel");
    EXPECT_FALSE(dock->windowIcon().isNull());
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    dock->setWidget(nullptr);
    widget.setParent(nullptr);
}

TEST_F(DockWindowManagerTest, PutsAWidgetBelowTheViewWhereTheAreaIsLeftToIt)
{
    EXPECT_EQ(window.dockWidgetArea(add("Panel", Qt::NoDockWidgetArea)), Qt::BottomDockWidgetArea);
}

TEST_F(DockWindowManagerTest, HidesADockThatIsNotToBeVisible)
{
    QDockWidget* dock = add("Panel", Qt::RightDockWidgetArea, false);
    show();

    EXPECT_FALSE(dock->isVisible());
    EXPECT_FALSE(entry("Panel")->isChecked());
}

TEST_F(DockWindowManagerTest, TabsTheDocksOfOneSide)
{
    QDockWidget* first = add("First");
    QDockWidget* second = add("Second");
    QDockWidget* left = add("Left", Qt::LeftDockWidgetArea);
    show();

    EXPECT_EQ(window.tabifiedDockWidgets(first), QList<QDockWidget*>{second});
    EXPECT_TRUE(window.tabifiedDockWidgets(left).isEmpty());
    EXPECT_FALSE(second->visibleRegion().isEmpty()); // the one shown last is on top
    EXPECT_TRUE(first->visibleRegion().isEmpty());
}

TEST_F(DockWindowManagerTest, GivesTheDockThatAWidgetHasAlreadyAndNoneForNoWidget)
{
    auto* widget = new QLabel;
    QDockWidget* dock = docks->add("A", "", widget, "", QIcon(), "A", Qt::LeftDockWidgetArea, true, nullptr);

    EXPECT_EQ(docks->add("B", "", widget, "", QIcon(), "B", Qt::RightDockWidgetArea, true, nullptr), dock);
    EXPECT_EQ(docks->add("C", "", nullptr, "", QIcon(), "C", Qt::RightDockWidgetArea, true, nullptr),
              nullptr);
    EXPECT_EQ(window.findChildren<QDockWidget*>().count(), 1);
}

TEST_F(DockWindowManagerTest, MakesANameWhereNoneIsGivenOrItIsTaken)
{
    EXPECT_EQ(add("Panel")->objectName(), "Panel");
    EXPECT_EQ(add("Panel")->objectName(), "Panel 2");
    const auto addNameless = [this](const char* name, const char* title) {
        return docks->add(name, "", new QLabel, "", QIcon(), title, Qt::LeftDockWidgetArea, true, nullptr);
    };
    EXPECT_EQ(addNameless(nullptr, "Title")->objectName(), "Title");
    EXPECT_FALSE(addNameless("", "")->objectName().isEmpty());
}

TEST_F(DockWindowManagerTest, RemovesAWidgetWithItsDockAndItsEntry)
{
    auto* widget = new QLabel;
    docks->add("Panel", "", widget, "", QIcon(), "Panel", Qt::RightDockWidgetArea, true, nullptr);
    const QPointer<QWidget> watched(widget);
    QLabel stranger;

    docks->remove(nullptr);
    docks->remove(&stranger);
    EXPECT_NE(entry("Panel"), nullptr);
    docks->remove(widget);

    EXPECT_TRUE(watched.isNull());
    EXPECT_EQ(entry("Panel"), nullptr);
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
}

TEST_F(DockWindowManagerTest, TakesTheDockAwayWhenItsWidgetIsDestroyed)
{
    QDockWidget* dock = add("Panel");
    delete dock->widget();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_EQ(entry("Panel"), nullptr);
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
}

TEST_F(DockWindowManagerTest, ListsTheDocksUnderTheirGroups)
{
    const auto addTo = [this](const char* group, const char* title) {
        docks->add(title, group, new QLabel, "", QIcon(), title, Qt::LeftDockWidgetArea, true, nullptr);
    };
    addTo("Scene", "Tree");
    addTo("Animation", "VRML Animation");
    addTo("Scene", "Materials & Lights");

    QStringList texts;
    for (const QAction* action : docks->windowMenu()->actions())
        texts << (action->isSeparator() ? "[" + action->text() + "]" : action->text());
    EXPECT_EQ(texts, (QStringList{"[Scene]", "Tree", "Materials && Lights", "[Animation]", "VRML Animation",
                                  "[]", "&Reset Layout"}));
}

TEST_F(DockWindowManagerTest, ShowsHidesAndRaisesByTheWindowMenu)
{
    QDockWidget* first = add("First");
    add("Second");
    show();
    ASSERT_TRUE(entry("First")->isChecked());

    entry("First")->trigger();
    EXPECT_FALSE(first->isVisible());
    EXPECT_FALSE(entry("First")->isChecked());
    entry("First")->trigger();
    QApplication::processEvents();

    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(first->visibleRegion().isEmpty()); // not hidden behind the other tab
}

TEST_F(DockWindowManagerTest, UnchecksTheEntryOfADockThatTheUserCloses)
{
    QDockWidget* dock = add("Panel");
    show();
    dock->close();

    EXPECT_FALSE(entry("Panel")->isChecked());
    EXPECT_NE(dock->widget(), nullptr);
}

TEST_F(DockWindowManagerTest, IsWorkedByKeyInTheWindowMenu)
{
    QDockWidget* dock = add("Panel");
    show();
    docks->windowMenu()->popup(window.mapToGlobal(QPoint(10, 10)));
    docks->windowMenu()->setActiveAction(entry("Panel"));
    QTest::keyClick(docks->windowMenu(), Qt::Key_Return);

    EXPECT_FALSE(dock->isVisible());
}

TEST_F(DockWindowManagerTest, OffersFloatingClosingAndTheDocksOwnEntriesOnARightClickOnItsTitle)
{
    QMenu own;
    QAction* help = own.addAction("Help");
    QDockWidget* dock =
        docks->add("Panel", "", new QLabel, "", QIcon(), "Panel", Qt::RightDockWidgetArea, true, &own);
    show();

    QMenu* menu = rightClick(dock, QPoint(5, 3));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().contains(help));
    named(menu, "&Float")->trigger();
    EXPECT_TRUE(dock->isFloating());
    menu->close();

    dock->setFloating(false);
    menu = rightClick(dock, QPoint(5, 3));
    ASSERT_NE(menu, nullptr);
    named(menu, "&Close")->trigger();
    EXPECT_FALSE(dock->isVisible());
    menu->close();
}

TEST_F(DockWindowManagerTest, OffersDockingOnARightClickOnAFloatingTitle)
{
    QDockWidget* dock = add("Panel");
    show();
    dock->setFloating(true);
    if (dock->widget()->geometry().contains(5, 3))
        GTEST_SKIP() << "this platform draws the title itself";

    QMenu* menu = rightClick(dock, QPoint(5, 3));
    ASSERT_NE(menu, nullptr);
    named(menu, "&Dock")->trigger();
    EXPECT_FALSE(dock->isFloating());
    menu->close();
}

TEST_F(DockWindowManagerTest, LeavesARightClickOnTheWidgetToTheWidget)
{
    QDockWidget* dock = add("Panel");
    window.setContextMenuPolicy(Qt::NoContextMenu);
    show();

    EXPECT_EQ(rightClick(dock, dock->widget()->geometry().center()), nullptr);
}

TEST_F(DockWindowManagerTest, GetsAlongWithoutAMenuThatWentAway)
{
    auto own = std::make_unique<QMenu>();
    QDockWidget* dock =
        docks->add("Panel", "", new QLabel, "", QIcon(), "Panel", Qt::RightDockWidgetArea, true, own.get());
    show();
    own.reset();

    QMenu* menu = rightClick(dock, QPoint(5, 3));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().count(), 2);
    menu->close();
}

TEST_F(DockWindowManagerTest, FloatsAtTheSizeTheWidgetHadBeforeAndOnTheScreen)
{
    auto* panel = new QLabel("panel");
    panel->resize(400, 200);
    QDockWidget* dock =
        docks->add("Panel", "", panel, "", QIcon(), "Panel", Qt::BottomDockWidgetArea, true, nullptr);
    show();
    ASSERT_GT(dock->width(), 900);

    dock->setFloating(true);
    EXPECT_EQ(dock->size(), QSize(400, 200));
    EXPECT_TRUE(window.screen()->availableGeometry().contains(dock->geometry()));

    dock->resize(500, 250); // the user's own size from then on
    QApplication::processEvents();
    dock->setFloating(false);
    dock->setFloating(true);
    EXPECT_EQ(dock->size(), QSize(500, 250));
}

TEST_F(DockWindowManagerTest, ShowsAnAmpersandOfTheTitle)
{
    add("Materials & Lights");
    add("Panel");
    show();

    const auto* tabs = window.findChild<QTabBar*>();
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->tabText(0), "Materials && Lights"); // what a tab, like a menu, shows as one
}

TEST_F(DockWindowManagerTest, TakesTheSizeGripOffADockedWindow)
{
    auto* panel = new QMainWindow;
    panel->statusBar()->setSizeGripEnabled(true);
    docks->add("Panel", "", panel, "", QIcon(), "Panel", Qt::BottomDockWidgetArea, true, nullptr);

    EXPECT_FALSE(panel->statusBar()->isSizeGripEnabled());
}

} // namespace
