#pragma once

#include <kt/ktNodePtr.h>
#include <kt/ktScenegraph.h>
#include <osg/FieldContainerType.h>
#include <osg/TimeSensor.h>

/// The node's time sensor, or null: for a null node, one without a core, and one whose core is of another
/// kind.
inline osg::TimeSensorPtr timeSensorOf(const osg::NodePtr& node)
{
    if (!node || !node->getCore() ||
        !node->getCore()->getType().isDerivedFrom(osg::TimeSensor::getClassType()))
        return {};
    return osg::staticCast<osg::TimeSensor>(node->getCore());
}

/// Calls `action(node, sensor)` for each scene node of this name that has a time sensor, in the order of the
/// look-up.
template <class Action>
void forEachTimeSensor(const char* name, Action&& action)
{
    for (const ktNodePtr& node : ktScenegraph::findNodes(name)) {
        if (const osg::TimeSensorPtr sensor = timeSensorOf(node))
            action(node, sensor);
    }
}
