#pragma once

#include <osg/NodeCore.h>

namespace osg
{

/// The fields of a time sensor and their masks. Times are seconds of simulation time.
/// Setters write the field only; see Edit.h for the end of an edit.
class KT_OSG_EXPORT TimeSensorBase : public NodeCore
{
public:
    static const FieldContainerType& getClassType();

    static constexpr FieldMask CycleIntervalFieldMask = 1u << 1;
    static constexpr FieldMask TimeFieldMask = 1u << 2;
    static constexpr FieldMask StartTimeFieldMask = 1u << 3;
    static constexpr FieldMask FractionFieldMask = 1u << 4;
    static constexpr FieldMask IsActiveFieldMask = 1u << 5;
    static constexpr FieldMask StopFieldMask = 1u << 6;
    static constexpr FieldMask LoopFieldMask = 1u << 7;
    static constexpr FieldMask EnabledFieldMask = 1u << 8;

    /// Length of one cycle in seconds.
    double getCycleInterval() const { return _cycleInterval; }
    void setCycleInterval(double value) { _cycleInterval = value; }

    /// The sensor's current time.
    double getTime() const { return _time; }
    void setTime(double value) { _time = value; }

    /// When the current run began.
    double getStartTime() const { return _startTime; }
    void setStartTime(double value) { _startTime = value; }

    /// Position in the cycle, 0 to 1.
    float getFraction() const { return _fraction; }
    void setFraction(float value) { _fraction = value; }

    /// The sensor runs.
    bool isActive() const { return _isActive; }
    void setActive(bool value) { _isActive = value; }

    /// The sensor was put back to its initial position.
    bool isStopped() const { return _stop; }
    void setStop(bool value) { _stop = value; }

    /// A finished cycle is followed by the next one.
    bool isLooping() const { return _loop; }
    void setLoop(bool value) { _loop = value; }

    /// A disabled sensor does not run, whatever its other fields say.
    bool isEnabled() const { return _enabled; }
    void setEnabled(bool value) { _enabled = value; }

private:
    double _cycleInterval = 1.0;
    double _time = 0.0;
    double _startTime = 0.0;
    float _fraction = 0.0F;
    bool _isActive = false;
    bool _stop = false;
    bool _loop = false;
    bool _enabled = true;
};

} // namespace osg
