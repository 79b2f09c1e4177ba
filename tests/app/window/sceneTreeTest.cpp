#include "host/app/window/SceneTree.h"
#include "host/app/window/SceneTreeModel.h"
#include "tests/support/LogRecorder.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>

#include <gtest/gtest.h>

#include <QFont>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeView>

namespace
{

osg::NodePtr named(const char* name, const osg::NodeCorePtr& core = {})
{
    const osg::NodePtr node = osg::Node::create(core);
    node->addAttachment(osg::Name::create(name));
    return node;
}

class SceneTreeTest : public testing::Test
{
protected:
    SceneTreeTest()
    {
        root->addChild(hall);
        hall->addChild(door);
        hall->addChild(lamp);
        ktScenegraph::setRootNode(root);
        tree.refresh();
    }

    ~SceneTreeTest() override
    {
        ktSelectionManager::selectNodes({});
        ktScenegraph::setRootNode({});
    }

    QAbstractItemModel& rows() { return *tree.view().model(); }

    /// The row of a name in sight of the filter; invalid where there is none.
    QModelIndex row(const QString& name)
    {
        const QModelIndexList found =
            rows().match(rows().index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.first();
    }

    bool isSelected(const QString& name) { return tree.view().selectionModel()->isSelected(row(name)); }

    osg::NodePtr root = named("root");
    osg::NodePtr hall = named("Hall");
    osg::NodePtr door = named("T\xc3\xbcr", osg::TimeSensor::create());
    osg::NodePtr lamp = named("Lamp");
    kthost::SceneTree tree;
};

} // namespace

TEST_F(SceneTreeTest, ShowsNamesAsUtf8AndKindsWhereTheyDiffer)
{
    const QModelIndex index = row(QString::fromUtf8("T\xc3\xbcr"));
    ASSERT_TRUE(index.isValid());
    EXPECT_EQ(index.data(kthost::SceneTreeModel::KindRole).toString(), "TimeSensor");

    root->addChild(osg::Node::create(osg::TimeSensor::create()));
    tree.refresh();

    ASSERT_TRUE(row("TimeSensor").isValid());
    EXPECT_EQ(row("TimeSensor").data(kthost::SceneTreeModel::KindRole).toString(), "");
}

TEST_F(SceneTreeTest, TimeSensorsStandOut)
{
    EXPECT_TRUE(row(QString::fromUtf8("T\xc3\xbcr")).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(row("Lamp").data(Qt::FontRole).value<QFont>().bold());
}

TEST_F(SceneTreeTest, WhatTheHostSelectsIsSelectedInTheRows)
{
    ktSelectionManager::selectNodes({lamp, door});

    EXPECT_TRUE(isSelected("Lamp"));
    EXPECT_TRUE(isSelected(QString::fromUtf8("T\xc3\xbcr")));
    EXPECT_FALSE(isSelected("Hall"));
}

TEST_F(SceneTreeTest, ASelectedRowIsSelectedInTheHost)
{
    QSignalSpy changes(&tree, &kthost::SceneTree::selectionChanged);

    tree.view().selectionModel()->select(row("Lamp"), QItemSelectionModel::ClearAndSelect);

    EXPECT_EQ(ktSelectionManager::selectedNodes(), std::vector<ktNodePtr>{lamp});
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SceneTreeTest, RefreshingKeepsTheSelectionAndTellsNobody)
{
    ktSelectionManager::selectNodes({lamp});
    QSignalSpy changes(&tree, &kthost::SceneTree::selectionChanged);

    tree.refresh();

    EXPECT_TRUE(isSelected("Lamp"));
    EXPECT_EQ(ktSelectionManager::selectedNodes().size(), 1U);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(SceneTreeTest, ANodeThatIsGoneIsNoLongerSelected)
{
    ktSelectionManager::selectNodes({lamp, door});
    QSignalSpy changes(&tree, &kthost::SceneTree::selectionChanged);
    hall->subChild(lamp);

    tree.refresh();

    EXPECT_EQ(ktSelectionManager::selectedNodes(), std::vector<ktNodePtr>{door});
    EXPECT_TRUE(isSelected(QString::fromUtf8("T\xc3\xbcr")));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SceneTreeTest, RefreshingKeepsBranchesAsTheUserLeftThem)
{
    lamp->addChild(named("Bulb"));
    tree.refresh();
    tree.view().expand(row("Lamp"));
    tree.view().collapse(row("root"));

    tree.refresh();
    EXPECT_FALSE(tree.view().isExpanded(row("root")));

    tree.view().expand(row("root"));
    tree.view().expand(row("Hall"));
    tree.view().expand(row("Lamp"));
    tree.refresh();
    EXPECT_TRUE(tree.view().isExpanded(row("Lamp")));
}

TEST_F(SceneTreeTest, TheFilterShowsWhatMatchesAndTheWayThere)
{
    tree.filter().setText("lam");

    EXPECT_TRUE(row("Lamp").isValid());
    EXPECT_TRUE(row("Hall").isValid());
    EXPECT_FALSE(row(QString::fromUtf8("T\xc3\xbcr")).isValid());
    EXPECT_TRUE(tree.view().isExpanded(row("Hall")));
}

TEST_F(SceneTreeTest, WhatTheFilterHidesStaysSelected)
{
    ktSelectionManager::selectNodes({door});

    tree.filter().setText("lamp");
    EXPECT_EQ(ktSelectionManager::selectedNodes(), std::vector<ktNodePtr>{door});

    tree.filter().clear();
    EXPECT_TRUE(isSelected(QString::fromUtf8("T\xc3\xbcr")));
}

TEST_F(SceneTreeTest, ScrollingToAHiddenNodeClearsTheFilter)
{
    tree.filter().setText("lamp");

    ktScenegraph::scrollToNode(door);

    EXPECT_EQ(tree.filter().text(), "");
    EXPECT_TRUE(tree.view().isExpanded(row("Hall")));
}

TEST_F(SceneTreeTest, ScrollingBringsTheRowIntoSight)
{
    for (int i = 0; i < 500; ++i)
        hall->addChild(named("filler"));
    const osg::NodePtr last = named("last");
    hall->addChild(last);
    tree.refresh();
    tree.resize(230, 300);
    tree.show();
    EXPECT_FALSE(tree.view().viewport()->rect().intersects(tree.view().visualRect(row("last"))));

    ktScenegraph::scrollToNode(last);

    EXPECT_TRUE(tree.view().viewport()->rect().contains(tree.view().visualRect(row("last")).center()));
}

TEST_F(SceneTreeTest, ShowsNothingWhereNoSceneIsOpen)
{
    ktScenegraph::setRootNode({});
    tree.refresh();

    EXPECT_EQ(rows().rowCount(), 0);
    tree.filter().setText("x");
    ktScenegraph::scrollToNode(door);
}
