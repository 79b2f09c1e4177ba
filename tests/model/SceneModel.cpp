#include "tests/model/SceneModel.h"

#include <algorithm>
#include <cmath>

namespace kt::test
{

void SceneModel::open(const SceneFile& file)
{
    close();
    isOpen = true;
    bool hasTransform = false;
    for (const FileNode& given : file) {
        Node node;
        node.id = ++_lastId;
        if (!given.name.empty())
            node.ownName = given.name;
        node.kind = given.isSensor ? "TimeSensor" : "Transform";
        node.depth = given.isInside && hasTransform ? 2 : 1;
        if (given.isSensor) {
            node.sensor.cycleInterval = given.cycleInterval;
            node.sensor.isLooping = given.isLooping;
            node.sensor.isEnabled = given.isEnabled;
            // One that VRML97 runs at once begins now; nothing has elapsed in the others.
            const bool runs = given.isEnabled && given.isLooping && given.stopTime <= given.startTime;
            node.sensor.isActive = runs;
            node.sensor.time = node.sensor.startTime = runs ? now : given.startTime;
        }
        if (node.depth == 1)
            hasTransform = !given.isSensor;
        nodes.push_back(node);
    }
}

void SceneModel::close()
{
    isOpen = false;
    nodes.clear();
    _gone.clear();
    selected.clear();
    _isChanged = false;
}

std::size_t SceneModel::endOf(std::size_t place) const
{
    std::size_t end = place + 1;
    while (end < nodes.size() && nodes[end].depth > nodes[place].depth)
        ++end;
    return end;
}

void SceneModel::add(std::size_t under, const std::string& kind, const std::optional<std::string>& name)
{
    Node node;
    node.id = ++_lastId;
    node.ownName = name;
    node.kind = kind;
    node.depth = under < nodes.size() ? nodes[under].depth + 1 : 1;
    const std::size_t place = under < nodes.size() ? endOf(under) : nodes.size();
    nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(place), node);
    _isChanged = true;
}

void SceneModel::remove(std::size_t place)
{
    const auto begin = nodes.begin() + static_cast<std::ptrdiff_t>(place);
    const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(endOf(place));
    _gone.insert(_gone.end(), begin, end);
    nodes.erase(begin, end);
    _isChanged = true;
}

void SceneModel::rename(std::size_t place, const std::string& name, bool isAnnounced)
{
    nodes[place].ownName = name;
    _isChanged = _isChanged || isAnnounced;
}

bool SceneModel::takeChange()
{
    const bool isChanged = _isChanged;
    _isChanged = false;
    return isChanged;
}

void SceneModel::run(Sensor& sensor, double elapsed) const
{
    sensor.time = now;
    sensor.startTime = now - elapsed;
    sensor.isActive = true;
    sensor.isStopped = false;
}

void SceneModel::start(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) { run(sensor, 0.0); });
}

void SceneModel::stop(const std::string& name)
{
    forSensors(name, [](Sensor& sensor) { sensor.isActive = false; });
}

void SceneModel::resume(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        if (!sensor.isActive)
            run(sensor, sensor.time - sensor.startTime);
    });
}

void SceneModel::toggle(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        if (sensor.isActive)
            sensor.isActive = false;
        else
            run(sensor, sensor.time - sensor.startTime);
    });
}

void SceneModel::reset(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        sensor.time = sensor.startTime = now;
        sensor.fraction = 0.0F;
        sensor.isActive = false;
        sensor.isStopped = true;
    });
}

void SceneModel::advanceTo(double time)
{
    now = time;
    for (Node& node : nodes) {
        if (node.isSensor() && node.sensor.isEnabled && node.sensor.isActive && !node.sensor.isStopped)
            evaluate(node.sensor, time);
    }
}

void SceneModel::evaluate(Sensor& sensor, double time)
{
    const double elapsed = time - sensor.startTime;
    sensor.time = time;
    if (!sensor.isLooping && (sensor.cycleInterval <= 0.0 || elapsed >= sensor.cycleInterval)) {
        sensor.fraction = 1.0F;
        sensor.isActive = false;
        return;
    }
    if (sensor.cycleInterval <= 0.0) {
        sensor.fraction = 1.0F;
        return;
    }
    double whole = 0.0;
    const double part = std::modf(elapsed / sensor.cycleInterval, &whole);
    sensor.fraction = part == 0.0 && elapsed > 0.0 ? 1.0F : static_cast<float>(part);
}

int SceneModel::select(const std::vector<std::string>& names, bool evenNone)
{
    std::vector<int> found;
    for (const Node& node : nodes) {
        if (std::find(names.begin(), names.end(), node.name()) != names.end())
            found.push_back(node.id);
    }
    if (evenNone || !found.empty())
        selected = found;
    return static_cast<int>(found.size());
}

std::vector<std::string> SceneModel::selectedNames() const
{
    std::vector<std::string> names;
    for (const int id : selected) {
        for (const std::vector<Node>* all : {&nodes, &_gone}) {
            for (const Node& node : *all) {
                if (node.id == id)
                    names.push_back(node.name());
            }
        }
    }
    return names;
}

} // namespace kt::test
