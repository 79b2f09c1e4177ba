#pragma once

#include "tests/support/LogRecorder.h"
#include "tests/support/Scene.h"

#include <kt/ktMessage.h>
#include <qkt/QKTDockWindowManager.h>

#include <QListWidget>
#include <QMainWindow>

#include <cstdint>
#include <string>
#include <vector>

namespace kt::fuzz
{

/// The built plug-in in a window that is never shown, loaded once for all inputs, and a scene of time sensors
/// below one root.
class PluginRig
{
public:
    /// What playback writes of one sensor, to be compared.
    struct Moment
    {
        std::string name;
        double time;
        double startTime;
        float fraction;
        bool isActive;
        bool isStopped;

        bool operator==(const Moment& other) const;
    };

    /// Loads the plug-in on the first call. Makes the QApplication where there is none yet.
    static PluginRig& instance();

    /// An empty registry, an empty project, no scene but its root, the clock at 0.
    void reset();

    void addSensor(const std::string& name);
    void removeNode(std::size_t place);
    void renameNode(std::size_t place, const std::string& name);
    std::size_t countNodes() const { return _nodes.size(); }

    void passTime(double seconds);

    /// The sensors as they are now, in document order.
    std::vector<Moment> moments() const;

    /// Lets the plug-in load what the project holds under the name of its settings.
    void load(const boost::any& settings);

    /// Sends a message by its id.
    static void deliver(std::uint32_t id);

    /// Selects one row of the panel's list, or none where there is no such row.
    void select(int row);

    /// What the plug-in writes into the project when it is asked to save: four strings a record. The project
    /// is left as it was.
    static std::vector<std::string> saved();

    /// Ends the process where the panel's rows are not what would be saved, or where the host or the plug-in
    /// caught an exception since reset().
    void check() const;

private:
    PluginRig();

    test::Scene _scene;
    test::LogRecorder _log;
    QMainWindow _window;
    QKTDockWindowManager _docks{&_window};
    QListWidget* _list = nullptr;
    std::vector<osg::NodePtr> _nodes;
};

} // namespace kt::fuzz
