#pragma once

#include <osg/ChangeList.h>
#include <osg/Node.h>
#include <osg/TimeSensor.h>

#include <vector>

namespace kt::test
{

/// A time sensor, of a type derived from the plain one, that remembers what it was told of edits.
class RecordingSensor : public osg::TimeSensor
{
public:
    struct Change
    {
        osg::FieldMask mask;
        osg::ChangeOrigin origin;
        std::size_t listed; ///< How many edits the current change list held by then.
    };

    static const osg::FieldContainerType& getClassType();
    static osg::Ptr<RecordingSensor> create();

    const osg::FieldContainerType& getType() const override;
    void changed(osg::FieldMask which, osg::ChangeOrigin origin) override;

    std::vector<Change> changes;
};

/// A core that is no time sensor.
class OtherCore : public osg::NodeCore
{
public:
    static const osg::FieldContainerType& getClassType();
    static osg::NodeCorePtr create();

    const osg::FieldContainerType& getType() const override;
};

/// The open scene for as long as it lives: a root without name and core, and a change list for this thread.
class Scene
{
public:
    Scene();
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const osg::NodePtr& root() const { return _root; }

    /// A new last child of `parent`, or of the root. A null name leaves the node without one.
    osg::NodePtr addNode(const char* name, const osg::NodeCorePtr& core = {},
                         const osg::NodePtr& parent = {});
    RecordingSensor& addTimeSensor(const char* name, const osg::NodePtr& parent = {});

    /// Takes the child of the root out that has this name attachment.
    void removeNode(const char* name);

    osg::ChangeList changes;

private:
    osg::NodePtr _root;
};

} // namespace kt::test
