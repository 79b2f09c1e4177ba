#include "host/app/LiveClock.h"

#include "host/app/FrameLoop.h"

#include <kt/ktController.h>

namespace kthost
{
namespace
{

constexpr int millisecondsPerFrame = 16;
constexpr double nanosecondsPerSecond = 1e9;

} // namespace

LiveClock::LiveClock(FrameLoop& frames) : _frames(frames)
{
    _timer.setTimerType(Qt::PreciseTimer);
    _timer.setInterval(millisecondsPerFrame);
    connect(&_timer, &QTimer::timeout, this, &LiveClock::tick);
}

void LiveClock::start()
{
    _begin = ktController::getSimulationTime();
    _elapsed.start();
    _timer.start();
}

void LiveClock::stop()
{
    _timer.stop();
}

void LiveClock::tick()
{
    const double now = _begin + static_cast<double>(_elapsed.nsecsElapsed()) / nanosecondsPerSecond;
    _frames.advanceTo(now);
    emit ticked(now);
}

} // namespace kthost
