#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <QSignalSpy>

namespace
{

/// Breaking a connection by its signal and slot tells whether there was one.
class ConnectionsTest : public kt::test::ModuleFixture
{
protected:
    bool isConnected(const QObject* sender, const char* signal, const char* slot)
    {
        return QObject::disconnect(sender, signal, &module(), slot);
    }

    bool isConnectedToAnything(const QObject* sender)
    {
        return QObject::disconnect(sender, nullptr, &module(), nullptr);
    }
};

TEST_F(ConnectionsTest, OfTheListSelectionAndDeletion)
{
    EXPECT_TRUE(isConnected(&list(), SIGNAL(itemSelectionChanged()), SLOT(animationSelected())));
    EXPECT_TRUE(isConnected(&list(), SIGNAL(onDelete()), SLOT(animationDelete())));
    EXPECT_FALSE(isConnectedToAnything(&list())) << "nothing else, renaming least of all";
}

TEST_F(ConnectionsTest, OfTheStartBoxesTheUsersChoiceOnly)
{
    for (const QComboBox* box : {panel()._startModifier, panel()._startKey}) {
        EXPECT_TRUE(isConnected(box, SIGNAL(activated(QString)), SLOT(startKeyChange(QString))));
        EXPECT_FALSE(isConnectedToAnything(box));
    }
}

TEST_F(ConnectionsTest, OfTheStopBoxesTheUsersChoiceOnly)
{
    for (const QComboBox* box : {panel()._stopModifier, panel()._stopKey}) {
        EXPECT_TRUE(isConnected(box, SIGNAL(activated(QString)), SLOT(stopKeyChange(QString))));
        EXPECT_FALSE(isConnectedToAnything(box));
    }
}

TEST_F(ConnectionsTest, OfTheCommentItsText)
{
    EXPECT_TRUE(isConnected(panel()._comment, SIGNAL(textChanged(QString)), SLOT(commentChange(QString))));
    EXPECT_FALSE(isConnectedToAnything(panel()._comment));
}

TEST_F(ConnectionsTest, OfTheWheelsTheirValues)
{
    EXPECT_TRUE(isConnected(panel()._cycle_interval, SIGNAL(valueChanged(double)),
                            SLOT(changedCycleInterval(double))));
    EXPECT_FALSE(isConnectedToAnything(panel()._cycle_interval));
    EXPECT_TRUE(isConnected(panel()._fraction, SIGNAL(valueChanged(double)), SLOT(changedFraction(double))));
    EXPECT_FALSE(isConnectedToAnything(panel()._fraction));
}

TEST_F(ConnectionsTest, EachIsMadeOnce)
{
    const kt::test::RecordingSensor& door = addTimeSensor("Door");
    addRecord("Door");
    select({"Door"});
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    panel()._cycle_interval->setValue(2.0);
    panel()._fraction->setValue(0.5);
    emit list().onDelete();

    EXPECT_EQ(door.changes.size(), 2u);
    EXPECT_EQ(rebuilds.count(), 1);
}

} // namespace
