#pragma once

#include "tests/model/SceneFile.h"

#include <optional>
#include <string>
#include <vector>

namespace kt::test
{

/// The scene that is open, said once more in the plainest way: its nodes, the clock, what is selected.
class SceneModel
{
public:
    struct Sensor
    {
        double time = 0.0;
        double startTime = 0.0;
        double cycleInterval = 1.0;
        float fraction = 0.0F;
        bool isActive = false;
        bool isStopped = false;
        bool isLooping = false;
        bool isEnabled = true;
    };

    struct Node
    {
        int id = 0; ///< No two nodes ever have the same.
        std::optional<std::string> ownName;
        std::string kind; ///< Of the core; empty without one.
        int depth = 1;    ///< 1 below the root.
        Sensor sensor;

        bool isSensor() const { return kind == "TimeSensor" || kind == "RecordingSensor"; }

        /// One without a name of its own goes by its kind.
        std::string name() const { return ownName ? *ownName : kind; }
    };

    using Operation = void (SceneModel::*)(const std::string& name);

    void open(const SceneFile& file);
    void close();

    // Edits of an open scene. Places count the nodes in document order; the root is none of them.
    /// A last child of the node at `under`; of the root where that is the number of nodes.
    void add(std::size_t under, const std::string& kind, const std::optional<std::string>& name);
    /// With all below it.
    void remove(std::size_t place);
    void rename(std::size_t place, const std::string& name, bool isAnnounced = true);

    /// Nodes came, went or were renamed since it was asked last.
    bool takeChange();

    // Playback, of all sensors of a name.
    void start(const std::string& name);
    void stop(const std::string& name);
    void toggle(const std::string& name);
    void resume(const std::string& name);
    void reset(const std::string& name);

    /// The clock is at `time`, and the sensors that run follow it.
    void advanceTo(double time);

    /// All nodes of these names; how many. Where there are none, the selection stays or goes.
    int select(const std::vector<std::string>& names, bool evenNone);

    /// Of nodes that are gone, too: what is selected stays.
    std::vector<std::string> selectedNames() const;

    template <class Action>
    void forSensors(const std::string& name, Action action)
    {
        for (Node& node : nodes) {
            if (node.isSensor() && node.name() == name)
                action(node.sensor);
        }
    }

    bool isOpen = false;
    std::vector<Node> nodes; ///< In document order.
    double now = 0.0;
    std::vector<int> selected; ///< By their ids.

private:
    std::size_t endOf(std::size_t place) const;
    void run(Sensor& sensor, double elapsed) const;
    static void evaluate(Sensor& sensor, double time);

    std::vector<Node> _gone;
    bool _isChanged = false;
    int _lastId = 0;
};

} // namespace kt::test
