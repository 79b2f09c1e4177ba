#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace kthost
{

class FrameLoop;

/// Lets simulation time follow a steady clock while a window is open: a frame some sixty times a second.
class LiveClock : public QObject
{
    Q_OBJECT

public:
    /// Stands still until start(). `frames` must outlive the clock.
    explicit LiveClock(FrameLoop& frames);

    /// Goes on from the present simulation time.
    void start();
    void stop();
    bool isRunning() const { return _timer.isActive(); }

signals:
    /// A frame is done: the scene is as it is at `seconds` of simulation time.
    void ticked(double seconds);

private:
    void tick();

    FrameLoop& _frames;
    QTimer _timer;
    QElapsedTimer _elapsed;
    double _begin = 0.0;
};

} // namespace kthost
