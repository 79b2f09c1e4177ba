#pragma once

#include <osg/NodeCore.h>
#include <osg/Ptr.h>

#include <string>

namespace kthost
{

class VrmlCore;
using VrmlCorePtr = osg::Ptr<VrmlCore>;

/// The core of a VRML node that the scene graph has no class of its own for: it says what kind of node it is.
class VrmlCore : public osg::NodeCore
{
public:
    /// The type of every core of that VRML kind, such as "Transform"; registered when first asked for.
    static const osg::FieldContainerType& getKind(const std::string& vrmlName);

    static VrmlCorePtr create(const osg::FieldContainerType& kind);

    const osg::FieldContainerType& getType() const override { return _kind; }

private:
    explicit VrmlCore(const osg::FieldContainerType& kind) : _kind(kind) {}

    const osg::FieldContainerType& _kind;
};

} // namespace kthost
