#include "tests/listwidget/ListFixture.h"

#include <kt/ktShortcut.h>

#include <QContextMenuEvent>
#include <QTranslator>

namespace
{

using kt::test::Edits;

class MenuTest : public kt::test::ListFixture
{
protected:
    std::vector<bool> enabled() const
    {
        std::vector<bool> flags;
        for (const QAction* action : menu().actions())
            flags.push_back(action->isEnabled());
        return flags;
    }

    static QString key(Qt::Key code) { return ktShortcut::convertKey(code, 0, false); }
};

const std::vector<bool> withSelection(7, true);
const std::vector<bool> withoutSelection{false, false, false, false, false, true, true};

TEST_F(MenuTest, HasItsSevenEntriesWithTheirKeys)
{
    QStringList texts;
    for (const QAction* action : menu().actions())
        texts << action->text();

    EXPECT_EQ(texts, (QStringList{"Start\t" + key(Qt::Key_Return), "Pause/Continue\t" + key(Qt::Key_Space),
                                  "Reset\tR", "Select Nodes", "Delete\t" + key(Qt::Key_Delete), "Refresh",
                                  "Clear"}));
}

TEST_F(MenuTest, ItsEntriesHaveNoShortcutsOfTheirOwn)
{
    for (const QAction* action : menu().actions()) {
        EXPECT_TRUE(action->shortcut().isEmpty());
        EXPECT_FALSE(action->isSeparator());
    }
}

TEST_F(MenuTest, AFreshListHasOnlyRefreshAndClearEnabled)
{
    ktAnimationListWidget fresh(nullptr, "ignored", Qt::Window);
    const QList<QAction*> entries = fresh.findChild<QMenu*>()->actions();

    EXPECT_TRUE(fresh.objectName().isEmpty());
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(entries.at(i)->isEnabled(), withoutSelection[static_cast<std::size_t>(i)]) << i;
}

TEST_F(MenuTest, ASelectionEnablesTheFirstFive)
{
    select({"Door"});
    EXPECT_EQ(enabled(), withSelection);
    select({"Door", "Fan"});
    EXPECT_EQ(enabled(), withSelection);
    select({});
    EXPECT_EQ(enabled(), withoutSelection);
}

TEST_F(MenuTest, RefreshAndClearAreNeverTouched)
{
    entry(5).setEnabled(false);
    entry(6).setEnabled(false);

    select({"Door"});

    EXPECT_FALSE(entry(5).isEnabled());
    EXPECT_FALSE(entry(6).isEnabled());
}

TEST_F(MenuTest, StartStartsEverySelectedRow)
{
    select({"Roof", "Fan"});

    entry(0).trigger();

    EXPECT_TRUE(sensors[0]->isActive());
    EXPECT_TRUE(sensors[2]->isActive());
    EXPECT_EQ(edits(), (Edits{1, 0, 1}));
}

TEST_F(MenuTest, PauseContinueToggles)
{
    select({"Door"});
    sensors[1]->setActive(true);

    entry(1).trigger();
    EXPECT_FALSE(sensors[1]->isActive());
    entry(1).trigger();
    EXPECT_TRUE(sensors[1]->isActive());
}

TEST_F(MenuTest, ResetResets)
{
    select({"Door"});

    entry(2).trigger();

    EXPECT_TRUE(sensors[1]->isStopped());
    EXPECT_EQ(edits(), (Edits{0, 1, 0}));
}

TEST_F(MenuTest, DeleteRemovesTheSelectedRecords)
{
    select({"Door"});

    entry(4).trigger();

    EXPECT_EQ(records(), (QStringList{"Roof", "Fan"}));
}

TEST_F(MenuTest, RefreshScansTheScene)
{
    addTimeSensor("Bell");
    scene.removeNode("Door");

    entry(5).trigger();

    EXPECT_EQ(rows(), (QStringList{"Roof", "Fan", "Bell"}));
}

TEST_F(MenuTest, ClearEmptiesRegistryAndList)
{
    entry(6).trigger();

    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(MenuTest, OpensWhereTheListNotItsViewportHasThePoint)
{
    const QPoint point(20, 20);
    ASSERT_NE(list().viewport()->pos(), QPoint(0, 0));
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, list().viewport()->mapToGlobal(point));

    QApplication::sendEvent(list().viewport(), &event);

    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().pos(), list().mapToGlobal(point));
    EXPECT_EQ(menu().activeAction(), nullptr);
    menu().hide();
}

TEST_F(MenuTest, AChoiceWithTheKeyboardActs)
{
    select({"Door"});
    list().showPopup(QPoint(20, 20));

    QTest::keyClick(&menu(), Qt::Key_Down);
    QTest::keyClick(&menu(), Qt::Key_Return);

    EXPECT_TRUE(sensors[1]->isActive());
    EXPECT_FALSE(menu().isVisible());
}

/// Puts the context before each text.
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QString(context) == "ktAnimationListWidget" ? QString("<%1>").arg(text) : QString();
    }
};

TEST_F(MenuTest, TextsAreTranslatedBeforeTheirKeysAreAppended)
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    ktAnimationListWidget translated(nullptr);
    QCoreApplication::removeTranslator(&translator);

    QStringList texts;
    for (const QAction* action : translated.findChild<QMenu*>()->actions())
        texts << action->text();
    EXPECT_EQ(texts, (QStringList{"<Start\t>" + key(Qt::Key_Return),
                                  "<Pause/Continue\t>" + key(Qt::Key_Space), "<Reset\tR>", "<Select Nodes>",
                                  "<Delete\t>" + key(Qt::Key_Delete), "<Refresh>", "<Clear>"}));
}

} // namespace
