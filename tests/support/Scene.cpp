#include "tests/support/Scene.h"

#include <kt/NodeUtils.h>
#include <kt/ktScenegraph.h>
#include <osg/FieldContainerType.h>
#include <osg/Name.h>
#include <osg/PThreadBase.h>

#include <string>

namespace kt::test
{

const osg::FieldContainerType& RecordingSensor::getClassType()
{
    static const osg::FieldContainerType type("RecordingSensor", &osg::TimeSensor::getClassType());
    return type;
}

osg::Ptr<RecordingSensor> RecordingSensor::create()
{
    return osg::Ptr<RecordingSensor>(new RecordingSensor);
}

const osg::FieldContainerType& RecordingSensor::getType() const
{
    return getClassType();
}

void RecordingSensor::changed(osg::FieldMask which, osg::ChangeOrigin origin)
{
    const osg::ChangeList* list = osg::PThreadBase::getCurrentChangeList();
    changes.push_back({which, origin, list ? list->entries().size() : 0});
}

const osg::FieldContainerType& OtherCore::getClassType()
{
    static const osg::FieldContainerType type("OtherCore", &osg::NodeCore::getClassType());
    return type;
}

osg::NodeCorePtr OtherCore::create()
{
    return osg::NodeCorePtr(new OtherCore);
}

const osg::FieldContainerType& OtherCore::getType() const
{
    return getClassType();
}

Scene::Scene() : _root(osg::Node::create())
{
    ktScenegraph::setRootNode(_root);
    osg::PThreadBase::setCurrentChangeList(&changes);
}

Scene::~Scene()
{
    osg::PThreadBase::setCurrentChangeList(nullptr);
    osg::FieldContainerPtr::_ignore_change = false;
    ktScenegraph::setRootNode({});
}

osg::NodePtr Scene::addNode(const char* name, const osg::NodeCorePtr& core, const osg::NodePtr& parent)
{
    osg::NodePtr node = osg::Node::create(core);
    if (name)
        node->addAttachment(osg::Name::create(name));
    (parent ? parent : _root)->addChild(node);
    return node;
}

RecordingSensor& Scene::addTimeSensor(const char* name, const osg::NodePtr& parent)
{
    const osg::Ptr<RecordingSensor> sensor = RecordingSensor::create();
    addNode(name, sensor, parent);
    return *sensor;
}

void Scene::removeNode(const char* name)
{
    for (std::size_t i = 0; i < _root->getNChildren(); ++i) {
        const osg::NodePtr child = _root->getChild(i);
        const char* present = NodeUtils::getName(child);
        if (present && std::string(present) == name) {
            _root->subChild(child);
            return;
        }
    }
}

} // namespace kt::test
