#include "host/vrml/StartStopEvents.h"

#include <osg/Edit.h>

#include <Inventor/SbTime.h>
#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>

#include <utility>

namespace kthost
{
namespace
{

/// Simulation time counts from the start of the program; what is later than this is a time of day.
constexpr double latestSimulationTime = 1e8;

double momentOf(const SoSFTime& event, double now)
{
    const double time = event.getValue().getValue();
    return time > latestSimulationTime ? now : time;
}

void attach(SoFieldSensor& sensor, SoSensorCB* handler, void* listener, SoField& field)
{
    sensor.setFunction(handler);
    sensor.setData(listener);
    sensor.setPriority(0); // at once, since the next event would cover this one
    sensor.attach(&field);
}

} // namespace

void StartStopEvents::listen(SoVRMLTimeSensor& source, const osg::TimeSensorPtr& sensor)
{
    // What was sent while the scene was read is its beginning and no event.
    source.startTime.getValue();
    source.stopTime.getValue();
    Listener& listener = _listeners.emplace_back();
    listener.owner = this;
    listener.index = _listeners.size() - 1;
    listener.source = &source;
    listener.sensor = sensor;
    attach(listener.startSensor, onStart, &listener, source.startTime);
    attach(listener.stopSensor, onStop, &listener, source.stopTime);
}

void StartStopEvents::remember(Listener& listener)
{
    if (std::exchange(listener.isPending, true))
        return;
    listener.owner->_pending.push_back(listener.index);
}

void StartStopEvents::onStart(void* listener, SoSensor*)
{
    auto& known = *static_cast<Listener*>(listener);
    known.hasStart = true;
    remember(known);
}

void StartStopEvents::onStop(void* listener, SoSensor*)
{
    auto& known = *static_cast<Listener*>(listener);
    known.hasStop = true;
    remember(known);
}

void StartStopEvents::take(double now)
{
    // What is done now may lead to new events; those are for the next frame.
    const std::vector<std::size_t> pending = std::exchange(_pending, {});
    for (const std::size_t index : pending) {
        Listener& listener = _listeners[index];
        listener.isPending = false;
        start(listener, now);
        stop(listener, now);
        if (listener.hasStart || listener.hasStop)
            remember(listener);
    }
}

void StartStopEvents::start(Listener& listener, double now)
{
    using osg::TimeSensorBase;
    osg::TimeSensor& sensor = *listener.sensor;
    if (!listener.hasStart)
        return;
    const double moment = momentOf(listener.source->startTime, now);
    const bool isIgnored = sensor.isActive() || !sensor.isEnabled();
    if (!isIgnored && moment > now)
        return;
    listener.hasStart = false;
    if (isIgnored)
        return;
    sensor.setTime(now);
    sensor.setStartTime(moment);
    sensor.setActive(true);
    sensor.setStop(false);
    osg::endEdit(listener.sensor, TimeSensorBase::TimeFieldMask | TimeSensorBase::StartTimeFieldMask |
                                      TimeSensorBase::IsActiveFieldMask | TimeSensorBase::StopFieldMask);
}

void StartStopEvents::stop(Listener& listener, double now)
{
    osg::TimeSensor& sensor = *listener.sensor;
    if (!listener.hasStop)
        return;
    const double moment = momentOf(listener.source->stopTime, now);
    const bool isIgnored = !sensor.isActive() || moment <= sensor.getStartTime();
    if (!isIgnored && moment > now)
        return;
    listener.hasStop = false;
    if (isIgnored)
        return;
    sensor.setActive(false);
    osg::endEdit(listener.sensor, osg::TimeSensorBase::IsActiveFieldMask);
}

} // namespace kthost
