#include "module/ktAnimation.h"
#include "registry/timeSensors.h"

#include <kt/ktController.h>
#include <osg/Edit.h>

namespace
{

using osg::TimeSensorBase;

constexpr osg::FieldMask runMask = TimeSensorBase::TimeFieldMask | TimeSensorBase::IsActiveFieldMask |
                                   TimeSensorBase::StartTimeFieldMask | TimeSensorBase::StopFieldMask;
constexpr osg::FieldMask haltMask = TimeSensorBase::IsActiveFieldMask;
constexpr osg::FieldMask resetMask = runMask | TimeSensorBase::FractionFieldMask;

void halt(const osg::TimeSensorPtr& sensor)
{
    sensor->setActive(false);
    osg::endEdit(sensor, haltMask);
}

/// Lets the sensor run with `elapsed` seconds behind it. The clock is read once for each of the two times.
void run(const osg::TimeSensorPtr& sensor, double elapsed)
{
    sensor->setTime(ktController::getSimulationTime());
    sensor->setStartTime(ktController::getSimulationTime() - elapsed);
    sensor->setActive(true);
    sensor->setStop(false);
    osg::endEdit(sensor, runMask);
}

/// Goes on where the sensor was halted: time and start time still tell how far it was.
void resume(const osg::TimeSensorPtr& sensor)
{
    run(sensor, sensor->getTime() - sensor->getStartTime());
}

} // namespace

void ktAnimation::startAnimation(const char* name)
{
    forEachTimeSensor(name, [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) { run(sensor, 0.0); });
}

void ktAnimation::stopAnimation(const char* name)
{
    forEachTimeSensor(name, [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) { halt(sensor); });
}

void ktAnimation::toggleAnimation(const char* name)
{
    forEachTimeSensor(name, [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
        if (sensor->isActive())
            halt(sensor);
        else
            resume(sensor);
    });
}

void ktAnimation::pauseAnimation(const char* name)
{
    stopAnimation(name);
}

void ktAnimation::continueAnimation(const char* name)
{
    forEachTimeSensor(name, [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
        if (!sensor->isActive())
            resume(sensor);
    });
}

void ktAnimation::resetAnimation(const char* name)
{
    forEachTimeSensor(name, [](const ktNodePtr&, const osg::TimeSensorPtr& sensor) {
        const double now = ktController::getSimulationTime();
        sensor->setTime(now);
        sensor->setStartTime(now);
        sensor->setFraction(0.0F);
        sensor->setActive(false);
        sensor->setStop(true);
        osg::endEdit(sensor, resetMask);
    });
}
