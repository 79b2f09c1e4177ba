#pragma once

#include <osg/Node.h>
#include <osg/TimeSensor.h>

#include <QSize>
#include <QString>

#include <functional>
#include <vector>

namespace kthost
{

/// What scripts have done by the program they run in: the module ktHost hands its calls on to this. GUI
/// thread. An operation that cannot be done throws a std::exception whose text is one line, WHAT: WHY.
class ScriptHost
{
public:
    /// A time sensor of the scene and the node that carries it.
    struct Sensor
    {
        osg::NodePtr node;
        osg::TimeSensorPtr sensor;
    };

    virtual ~ScriptHost() = default;

    /// Opens a scene or a project in place of what is open.
    virtual void open(const QString& file) = 0;

    /// Saves the project.
    virtual void save(const QString& file) = 0;

    /// Lets simulation time pass in steps of 1 / `framesPerSecond`; 0 stands for the host's own rate.
    /// `afterStep` is called after each step and ends the advance by throwing.
    virtual void advance(double seconds, double framesPerSecond, const std::function<void()>& afterStep) = 0;

    /// Writes a picture of the scene as it is now; an invalid size stands for the host's own.
    virtual void writePicture(const QString& file, const QSize& size) = 0;

    /// The time sensors of the scene, in document order.
    virtual std::vector<Sensor> sensors() = 0;
};

} // namespace kthost
