// Driving one animation by name, through the built plug-in, in scenes of growing size: flat is what it should
// be.
#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktScenegraph.h>
#include <osg/ChangeList.h>
#include <osg/Name.h>
#include <osg/PThreadBase.h>
#include <osg/TimeSensor.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

constexpr int nodesPerGroup = 100;

osg::NodePtr named(const std::string& name, const osg::NodeCorePtr& core = {})
{
    const osg::NodePtr node = osg::Node::create(core);
    node->addAttachment(osg::Name::create(name));
    return node;
}

/// `count` nodes in groups, and the animation "Door" among them.
osg::NodePtr makeScene(int count)
{
    const osg::NodePtr root = named("root");
    osg::NodePtr group;
    for (int i = 0; i < count; ++i) {
        if (i % nodesPerGroup == 0) {
            group = named("group" + std::to_string(i));
            root->addChild(group);
        }
        group->addChild(named("node" + std::to_string(i)));
    }
    group->addChild(named("Door", osg::TimeSensor::create()));
    return root;
}

void driveByName(benchmark::State& state, const char* messageName)
{
    ktScenegraph::setRootNode(makeScene(static_cast<int>(state.range(0))));
    osg::ChangeList changes;
    osg::PThreadBase::setCurrentChangeList(&changes);
    ktMessage message;
    message.set("animation-name", std::string("Door"));
    ktController::sendMessage(messageName, message); // the index is made once for the scene
    for (auto _ : state) {
        ktController::sendMessage(messageName, message);
        changes.clear(); // as each frame does
    }
    osg::PThreadBase::setCurrentChangeList(nullptr);
    ktScenegraph::setRootNode({});
}

void start(benchmark::State& state)
{
    driveByName(state, "animationStart");
}

void toggle(benchmark::State& state)
{
    driveByName(state, "animationToggle");
}

} // namespace

BENCHMARK(start)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(toggle)->Arg(1000)->Arg(10000)->Arg(100000);
