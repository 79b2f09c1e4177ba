#include <osg/TimeSensor.h>

#include <osg/Edit.h>
#include <osg/FieldContainerType.h>

#include <cmath>

namespace osg
{

const FieldContainerType& TimeSensorBase::getClassType()
{
    static const FieldContainerType type("TimeSensorBase", &NodeCore::getClassType());
    return type;
}

const FieldContainerType& TimeSensor::getClassType()
{
    static const FieldContainerType type("TimeSensor", &TimeSensorBase::getClassType());
    return type;
}

TimeSensorPtr TimeSensor::create()
{
    return TimeSensorPtr(new TimeSensor);
}

const FieldContainerType& TimeSensor::getType() const
{
    return getClassType();
}

bool TimeSensor::advance(double now)
{
    if (!isEnabled() || !isActive() || isStopped())
        return false;
    const double elapsed = now - getStartTime();
    const double cycle = getCycleInterval();
    FieldMask mask = TimeFieldMask | FractionFieldMask;
    setTime(now);

    // Written so that a cycle interval that is not a number counts as a finished cycle too.
    const bool cycleIsOver = !(cycle > 0.0) || elapsed >= cycle;
    if (cycleIsOver && !isLooping()) {
        setFraction(1.0F);
        setActive(false);
        mask |= IsActiveFieldMask;
    } else if (!(cycle > 0.0)) {
        setFraction(1.0F);
    } else if (!(elapsed > 0.0)) {
        setFraction(0.0F);
    } else {
        // Subtraction and floor instead of fmod, which costs many times as much for each sensor of each
        // frame.
        const double cycles = elapsed / cycle;
        const double fraction = cycles - std::floor(cycles);
        setFraction(fraction > 0.0 ? static_cast<float>(fraction) : 1.0F);
    }
    endEdit(FieldContainerPtr(this), mask);
    return true;
}

} // namespace osg
