#pragma once

#include <kt/ktNodePtr.h>
#include <osg/ChangeList.h>
#include <osg/TimeSensor.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace kthost
{

/// A time sensor of the scene and the node that carries it.
struct SceneSensor
{
    osg::NodePtr node;
    osg::TimeSensorPtr sensor;
};

/// The time sensor that a node carries: a core of that type or of one derived from it. Null where it has
/// none.
osg::TimeSensorPtr timeSensorOf(const osg::NodePtr& node);

/// Moves the scene through simulation time, and takes what was edited to whoever follows it. Owns the GUI
/// thread's change list, which is the thread's current one for as long as the loop lives.
class FrameLoop
{
public:
    /// Gets the edits of a frame, in order.
    using Follower = std::function<void(const osg::ChangeList&)>;

    FrameLoop();
    ~FrameLoop();

    FrameLoop(const FrameLoop&) = delete;
    FrameLoop& operator=(const FrameLoop&) = delete;

    /// Who brings edits into the picture; empty for nobody.
    void setFollower(Follower follower) { _follower = std::move(follower); }

    /// Asked in each frame, before the sensors are evaluated, for what the scene's own events do to them;
    /// empty for nobody.
    void setEventSource(std::function<void(double now)> source) { _eventSource = std::move(source); }

    /// Told after the modules when nodes of the scene were added, removed or renamed; empty for nobody.
    void setSceneListener(std::function<void()> listener) { _sceneListener = std::move(listener); }

    /// One frame: sets the simulation time, calls the modules' loop(), asks the event source, evaluates the
    /// running sensors, then settle(). A time before the present one is held at the present one: the clock
    /// never runs back.
    void advanceTo(double now);

    /// Lets `seconds` pass in steps of 1 / `framesPerSecond`, the last one shorter where they do not come out
    /// even; `afterStep` is called after each. The time of each step is counted from the beginning, so no
    /// error adds up.
    void run(double seconds, double framesPerSecond, const std::function<void()>& afterStep);

    /// Hands pending edits to the follower, tells modules of a changed scene, calls their update().
    void settle();

    /// Tells modules with one message 32768 that nodes of the scene were added, removed or renamed, however
    /// many edits that were; does nothing where there were none. To be called at the end of each turn of an
    /// event loop.
    void announceSceneChange();

    /// Lets go of every node and edit that is kept from one frame to the next.
    void forget();

    /// The sensors of the scene, in document order; each core once.
    const std::vector<SceneSensor>& sensors();

private:
    osg::ChangeList _changes;
    osg::ChangeList _drained;
    Follower _follower;
    std::function<void(double)> _eventSource;
    std::function<void()> _sceneListener;
    osg::NodePtr _sensorRoot;
    std::uint64_t _sensorRevision = 0;
    std::vector<SceneSensor> _sensors;
};

} // namespace kthost
