#include "tests/support/Scene.h"

#include <gtest/gtest.h>

#include <osg/Edit.h>
#include <osg/FieldContainerType.h>
#include <osg/PThreadBase.h>

#include <thread>

namespace
{

using osg::ChangeList;
using osg::PThreadBase;

class EditTest : public testing::Test
{
protected:
    EditTest() { PThreadBase::setCurrentChangeList(&list); }
    ~EditTest() override
    {
        PThreadBase::setCurrentChangeList(nullptr);
        osg::FieldContainerPtr::_ignore_change = false;
    }

    ChangeList list;
    osg::Ptr<kt::test::RecordingSensor> sensor = kt::test::RecordingSensor::create();
};

TEST_F(EditTest, TheListKeepsAnEntryAnEditInOrder)
{
    const osg::NodePtr node = osg::Node::create();
    list.addChanged(sensor, 4);
    list.addChanged(node, 2);
    list.addChanged(sensor, 4);
    list.addChanged({}, 1);

    ASSERT_EQ(list.entries().size(), 3u);
    EXPECT_EQ(list.entries()[0].container, sensor);
    EXPECT_EQ(list.entries()[1].container, node);
    EXPECT_EQ(list.entries()[1].mask, 2u);
}

TEST_F(EditTest, TheListKeepsItsContainersAlive)
{
    list.addChanged(sensor, 1);
    const osg::FieldContainer* kept = sensor.get();
    sensor = nullptr;

    EXPECT_EQ(list.entries()[0].container.get(), kept);
    EXPECT_STREQ(kept->getType().getName(), "RecordingSensor");
}

TEST_F(EditTest, TheListIsDrainedBySwappingOrClearing)
{
    list.addChanged(sensor, 1);
    ChangeList drained;
    drained.swap(list);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(drained.entries().size(), 1u);

    drained.clear();
    EXPECT_TRUE(drained.isEmpty());
}

TEST_F(EditTest, EachThreadHasAListOfItsOwn)
{
    const ChangeList* others = &list;
    std::thread([&] { others = PThreadBase::getCurrentChangeList(); }).join();

    EXPECT_EQ(others, nullptr);
    EXPECT_EQ(PThreadBase::getCurrentChangeList(), &list);
}

TEST_F(EditTest, TheEndOfAnEditRecordsThenTells)
{
    osg::endEdit(sensor, 6);

    ASSERT_EQ(list.entries().size(), 1u);
    EXPECT_EQ(list.entries()[0].mask, 6u);
    ASSERT_EQ(sensor->changes.size(), 1u);
    EXPECT_EQ(sensor->changes[0].mask, 6u);
    EXPECT_EQ(sensor->changes[0].origin, osg::ExternalChange);
    EXPECT_EQ(sensor->changes[0].listed, 1u);
}

TEST_F(EditTest, TheEndOfAnEditWithoutAListOnlyTells)
{
    PThreadBase::setCurrentChangeList(nullptr);

    osg::endEdit(sensor, 6);

    EXPECT_EQ(sensor->changes.size(), 1u);
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(EditTest, TheEndOfAnEditOnlyRecordsWhileChangesAreIgnored)
{
    osg::FieldContainerPtr::_ignore_change = true;

    osg::endEdit(sensor, 6);

    EXPECT_TRUE(sensor->changes.empty());
    EXPECT_EQ(list.entries().size(), 1u);
}

TEST_F(EditTest, SettersCloseNoEdit)
{
    sensor->setTime(1.0);
    sensor->setActive(true);
    sensor->setFraction(0.5F);
    sensor->setCycleInterval(2.0);

    EXPECT_TRUE(sensor->changes.empty());
    EXPECT_TRUE(list.isEmpty());
}

} // namespace
