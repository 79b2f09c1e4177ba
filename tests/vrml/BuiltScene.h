#pragma once

#include "host/vrml/SceneBuilder.h"
#include "host/vrml/SceneReader.h"

#include <osg/FieldContainerType.h>
#include <osg/Name.h>
#include <osg/Node.h>

#include <Inventor/SoDB.h>

#include <functional>
#include <string>
#include <vector>

namespace kthost::test
{

/// A scene that was read and built.
struct BuiltScene
{
    explicit BuiltScene(const std::string& path) : reading(SceneReader::read(path))
    {
        if (reading)
            nodes = SceneBuilder::build(*reading.root, reading.names);
    }

    SceneReading reading;
    SceneNodes nodes;
};

/// The name attachment's text; empty where there is none.
inline std::string nameOf(const osg::NodePtr& node)
{
    const osg::AttachmentPtr name = node->findAttachment(osg::Name::getClassType().getGroupId());
    return name ? static_cast<osg::Name*>(name.get())->getValue() : std::string();
}

inline std::string kindOf(const osg::NodePtr& node)
{
    return node->getCore()->getType().getName();
}

/// Pre-order.
inline void forEachNode(const osg::NodePtr& node, const std::function<void(const osg::NodePtr&)>& visit)
{
    visit(node);
    for (std::size_t i = 0; i < node->getNChildren(); ++i)
        forEachNode(node->getChild(i), visit);
}

/// The names of all nodes of one kind, in document order.
inline std::vector<std::string> namesOf(const osg::NodePtr& root, const std::string& kind)
{
    std::vector<std::string> names;
    forEachNode(root, [&](const osg::NodePtr& node) {
        if (kindOf(node) == kind)
            names.push_back(nameOf(node));
    });
    return names;
}

inline std::size_t countNodes(const osg::NodePtr& root)
{
    std::size_t count = 0;
    forEachNode(root, [&](const osg::NodePtr&) { ++count; });
    return count;
}

} // namespace kthost::test
