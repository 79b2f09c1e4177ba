#include "host/vrml/SceneBuilder.h"

#include "host/vrml/CoinRef.h"
#include "host/vrml/DrawnNodes.h"
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
#include <utility>

namespace kthost
{
namespace
{

/// A node whose children are being built.
struct Branch
{
    SoNode* source;
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
    Walk(const NodeNames& names, const ReadLimits& limits) : _names(names), _limits(limits) {}

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
        if (_isShared && _result.problem.empty())
            lookAtDrawing(root);
        return std::move(_result);
    }

private:
    void enter(SoNode& source)
    {
        const auto [place, isNew] = _isOpen.try_emplace(&source, true);
        if (isNew) {
            _branches.push_back({&source, createNode(source), _fields.nodesOf(source)});
            if (_branches.size() > _limits.sceneDepth)
                refuse("more than " + std::to_string(_limits.sceneDepth) + " nodes stand inside each other");
        } else {
            _isShared = true;
        }
    }

    /// Most loops are a Script's, which is not drawn; and a few nodes that are used twice each, one inside
    /// the other, are more than can be drawn.
    void lookAtDrawing(SoNode& root)
    {
        const DrawnNodes drawn = DrawnNodes::of(root);
        if (drawn.loop) {
            const std::string name = _names.original(nameOf(*drawn.loop).getString());
            refuse((name.empty() ? "a node" : "'" + name + "'") + " stands inside itself");
            takeApart();
        } else if (drawn.count > _limits.drawnNodes) {
            refuse("more than " + std::to_string(_limits.drawnNodes) + " nodes are to be drawn");
        }
    }

    /// Nodes that hold each other would stay for good.
    void takeApart()
    {
        std::vector<CoinRef<SoNode>> nodes;
        for (const auto& visited : _isOpen)
            nodes.emplace_back(visited.first);
        for (const CoinRef<SoNode>& node : nodes)
            NodeFields::empty(*node);
    }

    void refuse(std::string problem)
    {
        if (_result.problem.empty())
            _result.problem = std::move(problem);
    }

    // A branch is hung on its parent when it is whole: the scene graph tells an edit to all that is above it.
    void leave()
    {
        osg::NodePtr node = std::move(_branches.back().node);
        _isOpen[_branches.back().source] = false;
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
    const ReadLimits _limits;
    NodeFields _fields;
    SceneNodes _result;
    std::vector<Branch> _branches;
    bool _isShared = false;                    ///< Some node is met again.
    std::unordered_map<SoNode*, bool> _isOpen; ///< Of each visited node: its children are being built.
    std::unordered_map<std::int16_t, const osg::FieldContainerType*> _kinds;
};

} // namespace

SceneNodes SceneBuilder::build(SoNode& root, const NodeNames& names, const ReadLimits& limits)
{
    return Walk(names, limits).run(root);
}

} // namespace kthost
