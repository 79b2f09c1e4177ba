#include "host/app/window/MessageConsole.h"
#include "host/app/FrameLoop.h"
#include "tests/support/LogRecorder.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktScenegraph.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace
{

std::string received;

void receive(ktMessage& message)
{
    message.get("animation-name", received);
}

class MessageConsoleTest : public testing::Test
{
protected:
    MessageConsoleTest()
    {
        received.clear();
        const osg::NodePtr root = osg::Node::create();
        const osg::NodePtr door = osg::Node::create(osg::TimeSensor::create());
        door->addAttachment(osg::Name::create("T\xc3\xbcr"));
        root->addChild(door);
        ktScenegraph::setRootNode(root);
        ktController::addCB("animationStart", receive);
        console.refresh();
    }

    ~MessageConsoleTest() override
    {
        ktController::subCB("animationStart", receive);
        ktScenegraph::setRootNode({});
    }

    QComboBox& box(const char* name) const
    {
        for (QComboBox* found : console.findChildren<QComboBox*>()) {
            if (found->accessibleName() == name)
                return *found;
        }
        throw std::logic_error(name);
    }

    bool says(const QString& text) const
    {
        for (const QLabel* label : console.findChildren<QLabel*>()) {
            if (label->text().contains(text))
                return true;
        }
        return false;
    }

    kt::test::LogRecorder log;
    kthost::FrameLoop frames;
    kthost::MessageConsole console{frames};
};

} // namespace

TEST_F(MessageConsoleTest, OffersTheMessagesAndTheAnimationsThereAre)
{
    EXPECT_GE(box("Message").findText("animationStart"), 0);
    EXPECT_GE(box("Animation").findText(QString::fromUtf8("T\xc3\xbcr")), 0);
}

TEST_F(MessageConsoleTest, SendsTheMessageWithTheNameOfTheAnimation)
{
    box("Message").setEditText("animationStart");
    box("Animation").setEditText(QString::fromUtf8("T\xc3\xbcr"));

    console.send();

    EXPECT_EQ(received, "T\xc3\xbcr");
    EXPECT_TRUE(says("Sent \"animationStart\"."));
}

TEST_F(MessageConsoleTest, ReturnInAFieldSends)
{
    box("Animation").setEditText("Gate");

    QTest::keyClick(box("Animation").lineEdit(), Qt::Key_Return);

    EXPECT_EQ(received, "Gate");
}

TEST_F(MessageConsoleTest, SaysWhenNobodyListens)
{
    box("Message").setEditText("animationDance");

    console.send();

    EXPECT_EQ(received, "");
    EXPECT_TRUE(says("Nobody listens to \"animationDance\"."));
}

TEST_F(MessageConsoleTest, WhatWasTypedStaysWhenTheListsAreReadAgain)
{
    box("Message").setEditText("mine");

    console.refresh();

    EXPECT_EQ(box("Message").currentText(), "mine");
}
