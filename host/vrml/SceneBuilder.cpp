#include "host/vrml/SceneBuilder.h"

#include "host/vrml/NodeFields.h"
#include "host/vrml/NodeNames.h"
#include "host/vrml/VrmlCore.h"

#include <osg/Name.h>

#include <Inventor/VRMLnodes/SoVRMLScript.h>
#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>
#include <Inventor/misc/SoProtoInstance.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kthost
{
namespace
{

/// A node whose children are being built.
struct Branch
{
    osg::NodePtr node;
    std::vector<SoNode*> children;
    std::size_t next = 0;
};

osg::TimeSensorPtr createSensor(const SoVRMLTimeSensor& source)
{
    const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
    sensor->setCycleInterval(source.cycleInterval.getValue().getValue());
    sensor->setLoop(source.loop.getValue());
    sensor->setEnabled(source.enabled.getValue());
    sensor->setStartTime(source.startTime.getValue().getValue());
    // Nothing has elapsed yet, so that a sensor that is continued begins at the beginning.
    sensor->setTime(sensor->getStartTime());
    return sensor;
}

/// A prototype instance stands in the scene as the first node of its body; what the file calls it goes before
/// that node's name in the body.
SbName nameOf(SoNode& source)
{
    const SoProtoInstance* const instance = SoProtoInstance::findProtoInstance(&source);
    return instance && instance->getName().getLength() > 0 ? instance->getName() : source.getName();
}

class Walk
{
public:
    explicit Walk(const NodeNames& names) : _names(names) {}

    // Scenes nest as deep as their authors like, so the way down is kept here and not on the stack.
    SceneNodes run(SoNode& root)
    {
        enter(root);
        while (!_branches.empty()) {
            Branch& branch = _branches.back();
            if (branch.next < branch.children.size())
                enter(*branch.children[branch.next++]);
            else
                leave();
        }
        return std::move(_result);
    }

private:
    void enter(SoNode& source)
    {
        if (_visited.insert(&source).second)
            _branches.push_back({createNode(source), _fields.nodesOf(source)});
    }

    // A branch is hung on its parent when it is whole: the scene graph tells an edit to all that is above it.
    void leave()
    {
        osg::NodePtr node = std::move(_branches.back().node);
        _branches.pop_back();
        if (_branches.empty())
            _result.root = std::move(node);
        else
            _branches.back().node->addChild(node);
    }

    osg::NodePtr createNode(SoNode& source)
    {
        osg::NodePtr node = osg::Node::create(createCore(source));
        const SbName name = nameOf(source);
        if (name.getLength() > 0)
            node->addAttachment(osg::Name::create(_names.original(name.getString())));
        return node;
    }

    osg::NodeCorePtr createCore(SoNode& source)
    {
        const SoType type = source.getTypeId();
        if (type.isDerivedFrom(SoVRMLTimeSensor::getClassTypeId())) {
            auto& sensor = static_cast<SoVRMLTimeSensor&>(source);
            _result.sensors.push_back({&sensor, createSensor(sensor)});
            return _result.sensors.back().sensor;
        }
        if (type.isDerivedFrom(SoVRMLScript::getClassTypeId()))
            ++_result.scriptCount;
        return VrmlCore::create(kindOf(type), &source);
    }

    const osg::FieldContainerType& kindOf(SoType type)
    {
        const auto [known, isNew] = _kinds.try_emplace(type.getKey(), nullptr);
        if (isNew) {
            const std::string name = type.getName().getString();
            known->second = &VrmlCore::getKind(name.compare(0, 4, "VRML") == 0 ? name.substr(4) : name);
        }
        return *known->second;
    }

    const NodeNames& _names;
    NodeFields _fields;
    SceneNodes _result;
    std::vector<Branch> _branches;
    std::unordered_set<const SoNode*> _visited;
    std::unordered_map<std::int16_t, const osg::FieldContainerType*> _kinds;
};

} // namespace

SceneNodes SceneBuilder::build(SoNode& root, const NodeNames& names)
{
    return Walk(names).run(root);
}

} // namespace kthost
