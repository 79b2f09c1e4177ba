#pragma once

#include "host/vrml/CoinRef.h"

#include <osg/NodeCore.h>
#include <osg/Ptr.h>

#include <Inventor/nodes/SoNode.h>

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

    /// `drawing` is the reader's node that the core stands for, which it keeps alive; null for none.
    static VrmlCorePtr create(const osg::FieldContainerType& kind, SoNode* drawing = nullptr);

    const osg::FieldContainerType& getType() const override { return _kind; }

    SoNode* drawing() const { return _drawing.get(); }

private:
    VrmlCore(const osg::FieldContainerType& kind, SoNode* drawing) : _kind(kind), _drawing(drawing) {}

    const osg::FieldContainerType& _kind;
    CoinRef<SoNode> _drawing;
};

} // namespace kthost
