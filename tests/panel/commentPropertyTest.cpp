#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

namespace
{

const QChar replacement(0xFFFD);

class CommentPropertyTest : public kt::test::ModuleFixture
{
protected:
    CommentPropertyTest() : door(addRecord("Door")) { addRecord("Fan"); }

    void type(const QString& text)
    {
        select({"Door"});
        panel()._comment->setText(text);
    }

    ktAnimationInfo& door;
};

TEST_F(CommentPropertyTest, WhatIsTypedIsStored)
{
    type("front door");

    EXPECT_EQ(door.comment, "front door");
    EXPECT_TRUE(module().findAnimation("Fan")->comment.isEmpty());
}

/// A line edit holds so many characters, which is what a plain line of the form takes.
TEST_F(CommentPropertyTest, WhatIsLongerThanTheFieldHoldsIsCutWhenItIsShown)
{
    door.comment = QString(40000, 'x');

    select({"Door"});

    EXPECT_EQ(door.comment.size(), 32767);
}

TEST_F(CommentPropertyTest, AnEmptiedCommentIsStored)
{
    door.comment = "front";

    type("");

    EXPECT_TRUE(door.comment.isEmpty());
}

TEST_F(CommentPropertyTest, ALatin1LetterIsStoredAsAReplacementCharacter)
{
    type(QChar(0xE9));

    EXPECT_EQ(door.comment, QString(replacement));
}

TEST_F(CommentPropertyTest, ACharacterOutsideLatin1IsStoredAsAQuestionMark)
{
    type(QString("a") + QChar(0x03A9));

    EXPECT_EQ(door.comment, "a?");
}

TEST_F(CommentPropertyTest, Latin1LettersThatSpellUtf8AreStoredAsWhatTheySpell)
{
    type(QString(QChar(0xC3)) + QChar(0xA9));

    EXPECT_EQ(door.comment, QString(QChar(0xE9)));
}

TEST_F(CommentPropertyTest, WhatFollowsAZeroIsCutOff)
{
    type(QString("seen") + QChar(0) + "unseen");

    EXPECT_EQ(door.comment, "seen");
}

TEST_F(CommentPropertyTest, ShowingACommentStoresItOnceMore)
{
    door.comment = QString(QChar(0x03A9));
    module().findAnimation("Fan")->comment = QString(QChar(0xE9));

    select({"Door"});
    EXPECT_EQ(panel()._comment->text(), QString(QChar(0x03A9)));
    EXPECT_EQ(door.comment, "?");

    select({"Fan"});
    EXPECT_EQ(module().findAnimation("Fan")->comment, QString(replacement));
}

TEST_F(CommentPropertyTest, ShowingTheTextThatIsShownAlreadyStoresNothing)
{
    type(QChar(0x03A9));
    door.comment = QString(QChar(0x03A9));

    module().animationDisplayProperties();

    EXPECT_EQ(door.comment, QString(QChar(0x03A9)));
}

TEST_F(CommentPropertyTest, SwitchingRecordsMixesNothingUp)
{
    door.comment = "front";
    module().findAnimation("Fan")->comment = "ceiling";

    select({"Door"});
    select({});
    select({"Fan"});

    EXPECT_EQ(door.comment, "front");
    EXPECT_EQ(module().findAnimation("Fan")->comment, "ceiling");
}

TEST_F(CommentPropertyTest, TheArgumentIsNotRead)
{
    type("front");

    module().commentChange("another");

    EXPECT_EQ(door.comment, "front");
}

TEST_F(CommentPropertyTest, WithoutACurrentRecordNothingIsStored)
{
    panel()._comment->setText("of nobody");
    module().commentChange("of nobody");

    EXPECT_TRUE(door.comment.isEmpty());
}

} // namespace
