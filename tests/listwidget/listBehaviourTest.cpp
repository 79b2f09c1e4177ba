#include "listwidget/ktListViewItem.h"
#include "tests/listwidget/ListFixture.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>

#include <QDragEnterEvent>
#include <QMetaMethod>
#include <QMimeData>

#include <memory>

namespace
{

using kt::test::Edits;
using Nodes = std::vector<ktNodePtr>;

Nodes scrolledTo;

class ListBehaviourTest : public kt::test::ListFixture
{
protected:
    ListBehaviourTest()
    {
        scrolledTo.clear();
        ktSelectionManager::selectNodes({});
        ktScenegraph::setScrollHandler([](const ktNodePtr& node) { scrolledTo.push_back(node); });
    }
    ~ListBehaviourTest() override
    {
        ktScenegraph::setScrollHandler(nullptr);
        ktSelectionManager::selectNodes({});
        scrolledTo.clear();
    }

    /// What `action` writes to the standard output stream.
    template <class Action>
    static std::string output(Action&& action)
    {
        testing::internal::CaptureStdout();
        action();
        return testing::internal::GetCapturedStdout();
    }
};

TEST_F(ListBehaviourTest, IsSetUpForItsUse)
{
    EXPECT_FALSE(list().acceptDrops());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(list().focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(list().resizeMode(), QListView::Fixed);
    EXPECT_EQ(list().contextMenuPolicy(), Qt::CustomContextMenu);
    EXPECT_EQ(list().dragObject(), nullptr);
}

TEST_F(ListBehaviourTest, ADropIsRefused)
{
    // What a list takes from a list, and nothing else.
    const std::unique_ptr<QMimeData> row(list().model()->mimeData({list().model()->index(1, 0)}));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, row.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &enter);
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, row.get(), Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(list().viewport(), &drop);

    EXPECT_FALSE(enter.isAccepted());
    EXPECT_FALSE(drop.isAccepted());
    EXPECT_EQ(rows(), (QStringList{"Roof", "Door", "Fan"}));
}

TEST_F(ListBehaviourTest, ADoubleClickStartsTheRow)
{
    const std::string said = output([this] {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, centreOf("Door"));
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, centreOf("Door"));
    });

    EXPECT_EQ(edits(), (Edits{0, 1, 0}));
    EXPECT_TRUE(sensors[1]->isActive());
    EXPECT_EQ(said, "Playing Door\n");
}

TEST_F(ListBehaviourTest, ADoubleClickStartsEverySelectedRow)
{
    const std::string said = output([this] {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, centreOf("Fan"));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf("Roof"));
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf("Roof"));
    });

    EXPECT_EQ(edits(), (Edits{1, 0, 1}));
    EXPECT_TRUE(said == "Playing Roof\nPlaying Fan\n" || said == "Playing Fan\nPlaying Roof\n") << said;
}

TEST_F(ListBehaviourTest, RowsAreTakenInTheOrderOfTheSelection)
{
    select({"Fan", "Roof"});
    QString expected;
    for (const QListWidgetItem* item : list().selectedItems())
        expected += "Playing " + item->text() + "\n";

    EXPECT_EQ(output([this] { list().animStart(); }), expected.toStdString());
    ASSERT_EQ(scene.changes.entries().size(), 2u);
    const bool roofFirst = expected.startsWith("Playing Roof");
    EXPECT_EQ(scene.changes.entries()[0].container.get(), sensors[roofFirst ? 0 : 2]);
}

TEST_F(ListBehaviourTest, StartingSpeaksEvenOfANameThatLeftTheScene)
{
    scene.removeNode("Door");
    select({"Door"});

    EXPECT_EQ(output([this] { list().animStart(); }), "Playing Door\n");
}

TEST_F(ListBehaviourTest, TogglingAndResettingAreSilent)
{
    select({"Door"});

    EXPECT_EQ(output([this] {
                  list().animToggle();
                  list().animReset();
              }),
              "");
    EXPECT_EQ(edits(), (Edits{0, 2, 0}));
}

TEST_F(ListBehaviourTest, ANameInTwoSelectedRowsIsDrivenTwice)
{
    auto* twin = new ktListViewItem(&list());
    twin->setText("Door");
    select({"Door"});

    list().animToggle();

    EXPECT_EQ(edits(), (Edits{0, 2, 0}));
    EXPECT_FALSE(sensors[1]->isActive());
}

TEST_F(ListBehaviourTest, NamesArePassedAsLatin1)
{
    const kt::test::RecordingSensor& latin1 = addTimeSensor("T\xFCr");
    const kt::test::RecordingSensor& utf8 = addTimeSensor("T\xC3\xBCr");
    const kt::test::RecordingSensor& questionMark = addTimeSensor("?");
    addRecord("T\xC3\xBCr");
    addRecord("\xCE\xA9");
    list().item(3)->setSelected(true);

    EXPECT_EQ(output([this] { list().animStart(); }), "Playing T\xFCr\n");
    list().animToggle();
    list().animReset();
    EXPECT_EQ(latin1.changes.size(), 3u);
    EXPECT_TRUE(utf8.changes.empty());

    list().clearSelection();
    list().item(4)->setSelected(true);
    EXPECT_EQ(output([this] { list().animStart(); }), "Playing ?\n");
    EXPECT_EQ(questionMark.changes.size(), 1u);
}

TEST_F(ListBehaviourTest, SelectNodesSelectsThemAndScrollsToTheFirst)
{
    scene.addNode("Door");
    select({"Door", "Roof"});

    list().animShowNodes();

    const Nodes expected = ktScenegraph::findNodes(std::vector<std::string>{"Door", "Roof"});
    EXPECT_EQ(expected.size(), 3u);
    EXPECT_EQ(ktSelectionManager::selectedNodes(), expected);
    EXPECT_EQ(scrolledTo, Nodes{expected.front()});
}

TEST_F(ListBehaviourTest, SelectNodesWithoutANodeLeavesTheHostsSelection)
{
    const Nodes before{scene.root()};
    ktSelectionManager::selectNodes(before);
    scene.removeNode("Door");
    select({"Door"});

    list().animShowNodes();
    select({});
    list().animShowNodes();

    EXPECT_EQ(ktSelectionManager::selectedNodes(), before);
    EXPECT_TRUE(scrolledTo.empty());
}

TEST_F(ListBehaviourTest, TheMetaObjectHasTheSignalThenTheSlotsInOrder)
{
    const QMetaObject& meta = ktAnimationListWidget::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods << meta.method(i).methodSignature();

    EXPECT_STREQ(meta.className(), "ktAnimationListWidget");
    EXPECT_EQ(methods, (QStringList{"onDelete()", "animRefresh()", "animDelete()", "animClear()",
                                    "animStart()", "animToggle()", "animReset()", "animSelected()",
                                    "animShowNodes()", "showPopup(QPoint)"}));
    EXPECT_EQ(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
}

TEST_F(ListBehaviourTest, ARowShowsItsTextAndNothingElse)
{
    const auto* row = dynamic_cast<ktListViewItem*>(list().item(1));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->rtti(), 0);
    EXPECT_EQ(row->type(), QListWidgetItem::Type);
    EXPECT_EQ(row->data(Qt::DisplayRole), QVariant("Door"));
    for (const int role : {Qt::DecorationRole, Qt::ToolTipRole, Qt::FontRole, Qt::BackgroundRole,
                           Qt::ForegroundRole, Qt::CheckStateRole})
        EXPECT_FALSE(row->data(role).isValid()) << role;
}

TEST_F(ListBehaviourTest, APlayingRowLooksLikeAStoppedOne)
{
    select({"Door"});
    const QListWidgetItem before(*list().item(1));

    list().animToggle();

    EXPECT_EQ(list().item(1)->text(), before.text());
    EXPECT_EQ(list().item(1)->font(), before.font());
    EXPECT_FALSE(list().item(1)->data(Qt::DecorationRole).isValid());
}

} // namespace
