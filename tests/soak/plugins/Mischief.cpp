#include "tests/soak/plugins/Mischief.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessageId.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <osg/Edit.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>

#include <QKeyEvent>

#include <cstdio>
#include <iterator>
#include <limits>
#include <vector>

namespace kt::soak
{
namespace
{

constexpr int sensorsInScene = 1000;
constexpr int messagesPerTurn = 10;
constexpr int turnsPerEdit = 10;
constexpr std::size_t mostAdded = 50;

const char* const messageNames[] = {"animationStart", "animationStop",     "animationToggle",
                                    "animationPause", "animationContinue", "animationReset"};

std::string nameOf(int number)
{
    char text[32];
    std::snprintf(text, sizeof text, "Sensor%04d", number);
    return text;
}

} // namespace

int Mischief::below(int end)
{
    return std::uniform_int_distribution<int>(0, end - 1)(_random);
}

std::string Mischief::anyName()
{
    switch (below(20)) {
    case 0:
        return {};
    case 1:
        return "Nobody";
    case 2:
        return "\xff\xfe not UTF-8";
    case 3:
        return std::string(static_cast<std::size_t>(below(5000)), 'x');
    default:
        return nameOf(1 + below(sensorsInScene));
    }
}

osg::NodePtr Mischief::anySensor()
{
    const std::vector<ktNodePtr> found = ktScenegraph::findNodes(nameOf(1 + below(sensorsInScene)).c_str());
    return found.empty() ? osg::NodePtr() : static_cast<const osg::NodePtr&>(found.front());
}

void Mischief::turn()
{
    osg::Node* const scene = ktScenegraph::getRootNode().operator->();
    if (scene != _scene)
        _added.clear();
    _scene = scene;
    if (!scene)
        return;
    for (int i = 0; i < messagesPerTurn; ++i)
        sendAny();
    pressAny();
    if (below(turnsPerEdit) == 0)
        editAny();
}

void Mischief::sendAny()
{
    ktMessage message;
    const int kind = below(500);
    if (kind == 0)
        message.set("animation-name", 7); // of no use, and told of on the standard error stream
    else if (kind > 5)
        message.set("animation-name", anyName());
    if (below(10) == 0)
        message.set("comment", std::vector<std::string>{"for", "nobody"});
    ktController::sendMessage(messageNames[below(static_cast<int>(std::size(messageNames)))], message);
    ++_messages;
}

void Mischief::pressAny()
{
    const int key = Qt::Key_A + below(26);
    const int modifiers = below(2) == 0 ? Qt::NoModifier : Qt::ShiftModifier;
    QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
    ktOSGWidget::pressKey(key, 0, modifiers, &event);
}

void Mischief::editAny()
{
    ++_edits;
    switch (below(12)) {
    case 0:
        return addSensor();
    case 1:
        return removeSensor();
    case 2:
        return renameSensor();
    case 3:
        return loadSettings();
    case 4:
        return saveSettings();
    case 5:
        return ktSelectionManager::selectNodes({anySensor(), anySensor()});
    default:
        return editFields();
    }
}

void Mischief::addSensor()
{
    const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
    sensor->setLoop(below(2) == 0);
    sensor->setActive(true);
    const osg::NodePtr node = osg::Node::create(sensor);
    node->addAttachment(osg::Name::create("Added" + std::to_string(below(1000))));
    _scene->addChild(node);
    _added.push_back(node);
    if (_added.size() > mostAdded)
        removeSensor();
}

void Mischief::removeSensor()
{
    if (_added.empty())
        return;
    _scene->subChild(_added.front());
    _added.pop_front();
}

void Mischief::renameSensor()
{
    const osg::NodePtr node = anySensor();
    if (!node)
        return;
    // There and back in most cases, so that the scene's names do not wear out.
    const std::string name = NodeUtils::getName(node);
    ktScenegraph::setNodeName(below(2) == 0, node, "Renamed", true);
    ktScenegraph::setNodeName(below(2) == 0, node, name.c_str(), below(2) == 0);
}

void Mischief::editFields()
{
    const osg::NodePtr node = anySensor();
    if (!node)
        return;
    const auto sensor = osg::staticCast<osg::TimeSensor>(node->getCore());
    const double odd[] = {0.0, -1.0, 1e-9, 1e9, std::numeric_limits<double>::infinity(), 2.5};
    sensor->setCycleInterval(below(10) == 0 ? odd[below(static_cast<int>(std::size(odd)))]
                                            : 0.5 + below(80) * 0.1);
    sensor->setLoop(below(4) != 0);
    sensor->setEnabled(below(20) != 0);
    sensor->setFraction(static_cast<float>(below(101)) / 100.0F);
    osg::endEdit(sensor, osg::TimeSensor::CycleIntervalFieldMask | osg::TimeSensor::LoopFieldMask |
                             osg::TimeSensor::EnabledFieldMask | osg::TimeSensor::FractionFieldMask);
}

void Mischief::loadSettings()
{
    ktMessage& project = ktFileIO::getProject();
    std::vector<std::string> settings;
    for (int i = 0; i < 5; ++i) {
        settings.insert(settings.end(),
                        {nameOf(1 + below(sensorsInScene)), anyName(),
                         std::string("Shift ") + static_cast<char>('A' + below(26)), "Ctrl Q"});
    }
    project.set("Animations", settings);
    project.set("_loading", true, false);
    ktController::deliver(project);
    project.remove("_loading");
    ktMessage changed(ktMessageId::SceneChanged);
    ktController::deliver(changed);
}

void Mischief::saveSettings()
{
    ktMessage& project = ktFileIO::getProject();
    project.set("_loading", false, false);
    ktController::deliver(project);
    project.remove("_loading");
}

} // namespace kt::soak
