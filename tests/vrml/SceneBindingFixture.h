#pragma once

#include "host/vrml/SceneBinding.h"

#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <osg/Edit.h>

#include <gtest/gtest.h>

#include <Inventor/VRMLnodes/SoVRMLTransform.h>
#include <Inventor/actions/SoSearchAction.h>

#include <memory>

namespace kthost::test
{

/// A box that slides by eight in four seconds, over and over.
inline const std::string slide = R"(
    DEF T TimeSensor { cycleInterval 4 loop TRUE }
    DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] }
    DEF B Transform { children Shape { geometry Box { size 2 2 2 } } }
    ROUTE T.fraction_changed TO I.set_fraction
    ROUTE I.value_changed TO B.set_translation)";

/// A scene from text, bound, and the change list that its edits go to.
class SceneBindingTest : public ::testing::Test
{
protected:
    SceneBindingTest() { osg::PThreadBase::setCurrentChangeList(&changes); }
    ~SceneBindingTest() override { osg::PThreadBase::setCurrentChangeList(nullptr); }

    void open(const std::string& text)
    {
        scene = std::make_unique<BuiltScene>(folder.writeScene("scene.wrl", text));
        ASSERT_TRUE(scene->reading) << scene->reading.error;
        binding =
            std::make_unique<SceneBinding>(CoinRef<SoNode>(scene->reading.root.get()), scene->nodes.sensors);
    }

    osg::TimeSensor& sensor(std::size_t index = 0) { return *binding->sensors()[index]; }

    void applyChanges()
    {
        binding->apply(changes);
        changes.clear();
    }

    /// One frame of the host.
    void advanceTo(double now)
    {
        for (const osg::TimeSensorPtr& each : binding->sensors())
            each->advance(now);
        applyChanges();
    }

    void editFraction(float fraction, std::size_t index = 0)
    {
        sensor(index).setFraction(fraction);
        osg::endEdit(osg::FieldContainerPtr(&sensor(index)), osg::TimeSensorBase::FractionFieldMask);
    }

    template <class Node>
    Node& find(int index = 0)
    {
        SoSearchAction search;
        search.setType(Node::getClassTypeId());
        search.setInterest(SoSearchAction::ALL);
        search.setSearchingAll(TRUE);
        search.apply(scene->reading.root.get());
        return *static_cast<Node*>(search.getPaths()[index]->getNodeFromTail(0));
    }

    float position(int index = 0) { return find<SoVRMLTransform>(index).translation.getValue()[0]; }

    SceneFolder folder;
    osg::ChangeList changes;
    std::unique_ptr<BuiltScene> scene;
    std::unique_ptr<SceneBinding> binding;
};

} // namespace kthost::test
