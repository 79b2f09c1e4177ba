#pragma once

#include <kt/ktMessage.h>
#include <osg/Node.h>

#include <deque>
#include <random>
#include <string>

namespace kt::soak
{

/// What users, scripts and other modules do to a scene whose time sensors are called "Sensor0001" and so on,
/// at random.
class Mischief
{
public:
    explicit Mischief(unsigned long seed) : _random(seed) {}

    /// One turn's worth: ten messages, a key, and in one of ten turns an edit of the scene. Without a scene
    /// nothing.
    void turn();

    unsigned long messages() const { return _messages; }
    unsigned long edits() const { return _edits; }

private:
    /// From 0 to below `end`.
    int below(int end);

    std::string anyName();
    osg::NodePtr anySensor();
    void sendAny();
    void pressAny();
    void editAny();
    void addSensor();
    void removeSensor();
    void renameSensor();
    void editFields();
    void loadSettings();
    void saveSettings();

    std::mt19937_64 _random;
    std::deque<osg::NodePtr> _added; ///< Of the present scene.
    osg::Node* _scene = nullptr;     ///< Compared only.
    unsigned long _messages = 0;
    unsigned long _edits = 0;
};

} // namespace kt::soak
