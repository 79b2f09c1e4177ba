#include "host/vrml/SceneBinding.h"

#include "host/vrml/VrmlCore.h"

#include <osg/ChangeList.h>

#include <Inventor/SbTime.h>
#include <Inventor/SoDB.h>
#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>
#include <Inventor/misc/SoNotification.h>

#include <cmath>
#include <utility>

namespace kthost
{
namespace
{

/// All that is sent within it is one event to the reader's scene; sensors of the library wait for its end.
class Frame
{
public:
    Frame() { SoDB::startNotify(); }
    ~Frame() { SoDB::endNotify(); }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    const SoNotList& list() const { return _list; }

private:
    SoNotList _list;
};

constexpr osg::FieldMask startFields = osg::TimeSensorBase::TimeFieldMask |
                                       osg::TimeSensorBase::FractionFieldMask |
                                       osg::TimeSensorBase::IsActiveFieldMask;

void stopClockOf(SoVRMLTimeSensor& source)
{
    if (SoField* const clock = source.getField("timeIn"))
        clock->disconnect();
}

} // namespace

SceneBinding::SceneBinding(CoinRef<SoNode> root, const std::vector<TimeSensorLink>& links)
    : _root(std::move(root)), _events(std::make_unique<StartStopEvents>())
{
    _sensors.reserve(links.size());
    _routes.reserve(links.size());
    for (const TimeSensorLink& link : links) {
        stopClockOf(*link.source);
        _places.emplace(link.sensor.get(), _sensors.size());
        _sensors.push_back(link.sensor);
        _routes.push_back({link.source, RouteTargets(link.source->fraction_changed),
                           RouteTargets(link.source->time), RouteTargets(link.source->isActive),
                           RouteTargets(link.source->cycleTime)});
        _events->listen(*link.source, link.sensor);
    }
}

bool SceneBinding::runsAtOnce(const SoVRMLTimeSensor& source)
{
    return source.enabled.getValue() && source.loop.getValue() &&
           source.stopTime.getValue() <= source.startTime.getValue();
}

void SceneBinding::start(double now)
{
    const Frame frame;
    for (std::size_t i = 0; i < _sensors.size(); ++i) {
        if (!runsAtOnce(*_routes[i].source))
            continue;
        osg::TimeSensor& sensor = *_sensors[i];
        sensor.setTime(now);
        sensor.setStartTime(now);
        sensor.setFraction(0.0F);
        sensor.setActive(true);
        send(sensor, startFields, _routes[i], frame.list());
    }
}

void SceneBinding::apply(const osg::ChangeList& changes)
{
    const Frame frame;
    std::size_t next = 0;
    for (const osg::ChangeList::Entry& change : changes.entries()) {
        const std::size_t place = placeOf(change.container.get(), next);
        if (place == _sensors.size())
            continue;
        send(*_sensors[place], change.mask, _routes[place], frame.list());
        next = place + 1;
    }
}

std::vector<SoNode*> SceneBinding::drawingsOf(const osg::Node& node) const
{
    const osg::NodeCore* const core = node.getCore().get();
    const auto place = _places.find(core);
    if (place != _places.end())
        return _routes[place->second].fraction.animatedNodes();
    const auto* const drawn = dynamic_cast<const VrmlCore*>(core);
    return drawn && drawn->drawing() ? std::vector<SoNode*>{drawn->drawing()} : std::vector<SoNode*>{};
}

std::size_t SceneBinding::placeOf(const osg::FieldContainer* container, std::size_t guess) const
{
    if (guess < _sensors.size() && _sensors[guess].get() == container)
        return guess;
    const auto place = _places.find(container);
    return place != _places.end() ? place->second : _sensors.size();
}

void SceneBinding::send(const osg::TimeSensor& sensor, osg::FieldMask mask, Routes& routes,
                        const SoNotList& frame)
{
    const bool activeChanged =
        (mask & osg::TimeSensorBase::IsActiveFieldMask) && sensor.isActive() != routes.sentActive;
    if (activeChanged) {
        routes.sentActive = sensor.isActive();
        routes.sentCycle = -1.0;
        routes.isActive.send(SbBool(sensor.isActive()), frame);
    }
    if ((mask & osg::TimeSensorBase::TimeFieldMask) && sensor.isActive())
        sendCycle(sensor, routes, frame);
    if (mask & osg::TimeSensorBase::TimeFieldMask)
        routes.time.send(SbTime(sensor.getTime()), frame);
    if (mask & osg::TimeSensorBase::FractionFieldMask)
        routes.fraction.send(sensor.getFraction(), frame);
}

void SceneBinding::sendCycle(const osg::TimeSensor& sensor, Routes& routes, const SoNotList& frame)
{
    if (routes.cycleTime.isEmpty())
        return;
    const double elapsed = sensor.getTime() - sensor.getStartTime();
    const double cycle =
        sensor.getCycleInterval() > 0.0 ? std::floor(elapsed / sensor.getCycleInterval()) : 0.0;
    if (cycle == routes.sentCycle)
        return;
    routes.sentCycle = cycle;
    routes.cycleTime.send(SbTime(sensor.getTime()), frame);
}

} // namespace kthost
