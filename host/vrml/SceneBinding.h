#pragma once

#include "host/vrml/CoinRef.h"
#include "host/vrml/RouteTargets.h"
#include "host/vrml/SceneBuilder.h"
#include "host/vrml/StartStopEvents.h"

#include <Inventor/nodes/SoNode.h>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace osg
{
class ChangeList;
}

namespace kthost
{

/// Lets the time sensors of the scene graph drive the reader's scene in place of its own sensors: what
/// VRML97 6.50 sends from a TimeSensor goes along its routes when the fields of the osg::TimeSensor are
/// edited. GUI thread.
class SceneBinding
{
public:
    /// Takes the routes over and stops the reader's sensors for good. Keeps the scene alive.
    SceneBinding(CoinRef<SoNode> root, const std::vector<TimeSensorLink>& links);

    /// For a scene that was just loaded: runs, from `now` on, each sensor that VRML97 runs at once (enabled,
    /// loop TRUE, stopTime <= startTime) and shows its first moment. All others wait.
    void start(double now);

    /// Carries out what was edited: sends the fraction where it was written, written again with the same
    /// value too, the time and the cycles that begin with it, and is-active where it is another than was sent
    /// last. Entries of containers that are not bound are skipped.
    void apply(const osg::ChangeList& changes);

    /// Starts and stops the sensors that the scene's own sensors have sent a startTime or stopTime since the
    /// last call; see StartStopEvents. To be called before the sensors are evaluated for `now`.
    void takeEvents(double now) { _events->take(now); }

    /// What stands for the node in the drawing: the reader's node, or for a bound time sensor the nodes that
    /// it animates. None for a node that is not of a scene file.
    std::vector<SoNode*> drawingsOf(const osg::Node& node) const;

    /// The bound sensors in document order: those to advance in a frame.
    const std::vector<osg::TimeSensorPtr>& sensors() const { return _sensors; }

private:
    struct Routes
    {
        SoVRMLTimeSensor* source;
        RouteTargets fraction;
        RouteTargets time;
        RouteTargets isActive;
        RouteTargets cycleTime;
        bool sentActive = false;
        double sentCycle =
            -1.0; ///< Number of the cycle, from 0, that was announced last; -1 before the first.
    };

    /// Where the sensor is in _sensors, or its size for a stranger. A frame's entries mostly come in the
    /// order of _sensors, so the place after the last one is worth a `guess`.
    std::size_t placeOf(const osg::FieldContainer* container, std::size_t guess) const;

    static bool runsAtOnce(const SoVRMLTimeSensor& source);
    static void send(const osg::TimeSensor& sensor, osg::FieldMask mask, Routes& routes,
                     const SoNotList& frame);
    static void sendCycle(const osg::TimeSensor& sensor, Routes& routes, const SoNotList& frame);

    CoinRef<SoNode> _root;
    std::vector<osg::TimeSensorPtr> _sensors;
    std::vector<Routes> _routes; ///< Of the sensor at the same place.
    std::unordered_map<const osg::FieldContainer*, std::size_t> _places;
    std::unique_ptr<StartStopEvents> _events; ///< Goes before the scene does.
};

} // namespace kthost
