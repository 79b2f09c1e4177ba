#include "host/app/Report.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <osg/Name.h>

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

using namespace kthost;

namespace
{

SceneSensor sensorNamed(const char* name)
{
    const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
    const osg::NodePtr node = osg::Node::create(sensor);
    node->addAttachment(osg::Name::create(name));
    return {node, sensor};
}

class SavingModule : public ktModuleBase
{
public:
    SavingModule() : ktModuleBase("Saving", "Saving", ktMessageId::Project, nullptr) {}

    void receivedMessage(ktMessage&) override
    {
        ktFileIO::getProject().set("Animations", std::vector<std::string>{"B", "", "", "", "A", "x", "", ""});
    }
};

} // namespace

TEST(Report, WritesTheFieldsOfASensorInTheirOrder)
{
    const SceneSensor door = sensorNamed("Door");
    door.sensor->setActive(true);
    door.sensor->setTime(0.1);
    door.sensor->setStartTime(-2.0);
    door.sensor->setFraction(0.1F);
    door.sensor->setCycleInterval(1.0 / 3.0);

    EXPECT_EQ(sensorAsJson(door),
              "{\"name\":\"Door\",\"active\":true,\"stop\":false,\"time\":0.1,\"startTime\":-2,"
              "\"fraction\":0.1,\"cycleInterval\":0.3333333333333333,\"loop\":false}");
}

TEST(Report, NamesOfAnyBytesGiveValidJson)
{
    for (const char* name : {"T\xC3\xBCr \"auf\"\n", "\xFF\xFE", ""}) {
        const QByteArray line = QByteArray::fromStdString(sensorAsJson(sensorNamed(name)));
        EXPECT_TRUE(QJsonDocument::fromJson(line).isObject()) << line.toStdString();
        EXPECT_FALSE(line.contains('\n'));
    }
    const QByteArray line = QByteArray::fromStdString(sensorAsJson(sensorNamed("T\xC3\xBCr")));
    EXPECT_EQ(QJsonDocument::fromJson(line).object().value("name").toString(),
              QString::fromUtf8("T\xC3\xBCr"));
}

TEST(Report, NumbersThatJsonCannotSayAreNull)
{
    const SceneSensor door = sensorNamed("Door");
    door.sensor->setTime(std::numeric_limits<double>::infinity());

    EXPECT_NE(sensorAsJson(door).find("\"time\":null"), std::string::npos);
}

TEST(Report, AsksTheModuleForItsAnimations)
{
    SavingModule module;

    EXPECT_EQ(registeredAnimations(), (std::vector<std::string>{"B", "A"}));
}

TEST(Report, NamesNoAnimationsWithoutAModuleAndKeepsWhatTheProjectHolds)
{
    ktFileIO::clearProject();
    ktFileIO::getProject().set("Animations", std::vector<std::string>{"Old", "", "", ""});

    EXPECT_TRUE(registeredAnimations().empty());

    EXPECT_FALSE(ktFileIO::getProject().get("Animations").empty());
    EXPECT_TRUE(ktFileIO::getProject().get("_loading").empty());
}
