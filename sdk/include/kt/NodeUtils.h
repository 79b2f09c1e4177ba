#pragma once

#include <kt/Export.h>
#include <osg/Node.h>

/// What every user of the scene must answer alike.
namespace NodeUtils
{

/// What a node is called: the text of its name attachment, else that of its core's, else the name of the
/// core's type (so every unnamed time sensor is a "TimeSensor"). Null for a null node, and for one with
/// neither name nor core. The text belongs to the attachment or to the type: copy it at once.
KT_EXPORT const char* getName(const osg::NodePtr& node);

} // namespace NodeUtils
