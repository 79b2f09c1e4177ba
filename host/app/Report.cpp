#include "host/app/Report.h"

#include "host/app/ProjectMessage.h"

#include <kt/NodeUtils.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <charconv>
#include <cmath>

namespace kthost
{
namespace
{

const char* const settingsKey = "Animations";
constexpr std::size_t stringsPerAnimation = 4;

template <class Number>
std::string json(Number number)
{
    if (!std::isfinite(number))
        return "null";
    char digits[64];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return {digits, end};
}

std::string json(bool value)
{
    return value ? "true" : "false";
}

std::string json(const char* text)
{
    const QByteArray array =
        QJsonDocument(QJsonArray{QString::fromUtf8(text)}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2).toStdString();
}

} // namespace

std::vector<std::string> registeredAnimations()
{
    const ProjectProbe probe;
    ktMessage& project = ktFileIO::getProject();
    project.remove(settingsKey);
    tellModules(ProjectStep::Save);

    std::vector<std::string> names;
    const boost::any& saved = project.get(settingsKey);
    if (const auto* strings = boost::any_cast<std::vector<std::string>>(&saved)) {
        for (std::size_t i = 0; i < strings->size(); i += stringsPerAnimation)
            names.push_back((*strings)[i]);
    }
    return names;
}

std::string sensorAsJson(const SceneSensor& entry)
{
    const char* name = NodeUtils::getName(entry.node);
    const osg::TimeSensor& sensor = *entry.sensor;
    return "{\"name\":" + json(name ? name : "") + ",\"active\":" + json(sensor.isActive()) +
           ",\"stop\":" + json(sensor.isStopped()) + ",\"time\":" + json(sensor.getTime()) +
           ",\"startTime\":" + json(sensor.getStartTime()) + ",\"fraction\":" + json(sensor.getFraction()) +
           ",\"cycleInterval\":" + json(sensor.getCycleInterval()) + ",\"loop\":" + json(sensor.isLooping()) +
           "}";
}

} // namespace kthost
