#pragma once

#include <osg/TimeSensorBase.h>

namespace osg
{

class TimeSensor;
using TimeSensorPtr = Ptr<TimeSensor>;

/// A time sensor core: makes its node an animation. VRML97 6.50 TimeSensor.
class KT_OSG_EXPORT TimeSensor : public TimeSensorBase
{
public:
    static const FieldContainerType& getClassType();

    static TimeSensorPtr create();

    const FieldContainerType& getType() const override;

    /// Lets a running sensor follow the simulation time `now`, and closes the edit; true where it ran.
    /// One that is disabled, inactive or stopped is left untouched.
    /// Fraction (VRML97 6.50): the fractional part of elapsed / cycle interval, and 1 where a positive
    /// elapsed time is a whole number of cycles; 0 before the start time. A sensor that does not loop ends
    /// with its first cycle: fraction 1, inactive. A cycle interval that is not above 0 counts as a finished
    /// cycle. Masks: time and fraction, and is-active in the frame in which it ends.
    bool advance(double now);

protected:
    TimeSensor() = default;
};

} // namespace osg
