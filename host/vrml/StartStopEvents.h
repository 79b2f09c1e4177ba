#pragma once

#include <osg/TimeSensor.h>

#include <Inventor/sensors/SoFieldSensor.h>

#include <cstddef>
#include <deque>
#include <vector>

class SoVRMLTimeSensor;

namespace kthost
{

/// What the scene sends to its time sensors' startTime and stopTime, by routes from TouchSensors,
/// ProximitySensors and the like: kept until the next frame, and then done as VRML97 4.6.9 says. GUI thread.
class StartStopEvents
{
public:
    StartStopEvents() = default;
    StartStopEvents(const StartStopEvents&) = delete;
    StartStopEvents& operator=(const StartStopEvents&) = delete;

    /// Listens to the events of `source`, for `sensor`. Both must outlive this.
    void listen(SoVRMLTimeSensor& source, const osg::TimeSensorPtr& sensor);

    /// Does what has come by simulation time `now`; events for later moments stay. A start is ignored by a
    /// sensor that runs or is disabled, a stop by one that does not run and where it is no later than its
    /// start. Times of day, which the library's own events carry, mean now.
    void take(double now);

private:
    struct Listener
    {
        StartStopEvents* owner;
        std::size_t index;
        SoVRMLTimeSensor* source;
        osg::TimeSensorPtr sensor;
        SoFieldSensor startSensor;
        SoFieldSensor stopSensor;
        bool hasStart = false;
        bool hasStop = false;
        bool isPending = false;
    };

    static void onStart(void* listener, SoSensor*);
    static void onStop(void* listener, SoSensor*);
    static void remember(Listener& listener);
    static void start(Listener& listener, double now);
    static void stop(Listener& listener, double now);

    std::deque<Listener> _listeners;   // the library points at them
    std::vector<std::size_t> _pending; ///< Those that have an event.
};

} // namespace kthost
