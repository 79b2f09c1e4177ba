// A plug-in that fails in one of the host's calls, as its environment says:
//   KT_FAULT   the call, one of those that are handed to at() below
//   KT_KIND    what it does there: "std" and "other" throw, "twice" throws and crashes when it is asked next
//              what it keeps, a number is the signal that it sends the process
// --send faultKey=x presses a key, faultCore=x puts a sensor of its own class into the scene, faultDialog=x
// shows a modal dialog, faultUncaught=x fails where no exception can be caught, and faultLog=x has the host
// fail where it expects no exception: when it tells of one; faultLogLater=x out of the event loop.
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktLog.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <kt/ktScenegraph.h>
#include <osg/FieldContainerType.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>
#include <qkt/QKTDockWindowManager.h>

#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QTimer>

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace
{

bool isFailing = false;

void at(const std::string& call)
{
    const char* fault = std::getenv("KT_FAULT");
    const char* kind = std::getenv("KT_KIND");
    if (!fault || !kind || fault != call)
        return;
    isFailing = kind == std::string("twice");
    if (isFailing || kind == std::string("std"))
        throw std::runtime_error("no luck\nin " + call);
    if (kind == std::string("other"))
        throw 42;
    kill(getpid(), std::atoi(kind));
}

struct AtLoad
{
    AtLoad() { at("static"); }
} atLoad;

const ktPythonInit interpreter([](bool destroy) { at(destroy ? "pythonEnd" : "pythonStart"); });

class Sensor : public osg::TimeSensor
{
public:
    static osg::TimeSensorPtr make() { return osg::TimeSensorPtr(new Sensor); }

    void changed(osg::FieldMask, osg::ChangeOrigin) override { at("changed"); }
};

void addSensor(ktMessage&)
{
    const osg::TimeSensorPtr sensor = Sensor::make();
    sensor->setActive(true);
    sensor->setLoop(true);
    const osg::NodePtr node = osg::Node::create(sensor);
    node->addAttachment(osg::Name::create("Faulty"));
    ktScenegraph::getRootNode()->addChild(node);
}

void showDialog(ktMessage&)
{
    QMessageBox box(QMessageBox::Question, "Fault", "Wait?", QMessageBox::Ok, ktController::getMainWindow());
    QTimer::singleShot(0, &box, [] { at("dialog"); });
    box.exec();
}

void failUncaught(ktMessage&) noexcept
{
    at("uncaught");
}

void failToTell(ktMessage&)
{
    ktLog::setSink([](ktLog::Level, const char*) { throw std::runtime_error("no log"); });
    throw std::runtime_error("no luck");
}

void failToTellLater(ktMessage& message)
{
    QTimer::singleShot(300, [message]() mutable { failToTell(message); });
}

class Panel : public QLabel
{
protected:
    void paintEvent(QPaintEvent*) override { at("paint"); }
};

class Fault : public ktModuleBase
{
public:
    Fault()
        : ktModuleBase("Fault", "Fault",
                       ktMessageId::SceneCleared | ktMessageId::Project | ktMessageId::SceneChanged, nullptr)
    {
        at("constructor");
        ktController::getDockWindowManager()->add("Fault", "Fault", &_panel, "", QIcon(), "Fault",
                                                  Qt::RightDockWidgetArea, true, nullptr);
        ktController::addCB("fault", [](ktMessage&) { at("callback"); });
        ktController::addCB("faultKey", [](ktMessage&) { ktOSGWidget::pressKey(Qt::Key_A, 0, 0, nullptr); });
        ktController::addCB("faultCore", addSensor);
        ktController::addCB("faultDialog", showDialog);
        ktController::addCB("faultUncaught", failUncaught);
        ktController::addCB("faultLog", failToTell);
        ktController::addCB("faultLogLater", failToTellLater);
        ktOSGWidget::addMGLWPressKeyCB([](int, int, int, QEvent*) { at("key"); });
        auto* whenIdle = new QTimer(&_panel);
        QObject::connect(whenIdle, &QTimer::timeout, [] { at("idle"); });
        whenIdle->start(0);
    }

    ~Fault() override { at("destructor"); }

    QWidget* getWidget() const override
    {
        at("getWidget");
        return &_panel;
    }

    void init() override { at("init"); }
    void update() override { at("update"); }
    void loop() override { at("loop"); }

    void receivedMessage(ktMessage& message) override
    {
        if (message.id() != ktMessageId::Project)
            return at(message.id() == ktMessageId::SceneCleared ? "cleared" : "changedScene");
        if (isFailing)
            std::abort();
        bool isLoading = false;
        ktFileIO::getProject().get("_loading", isLoading);
        at(isLoading ? "load" : "save");
    }

private:
    Panel& _panel = *new Panel; ///< The dock's.
};

} // namespace

extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    at("version");
    return "10.0";
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    at("initPlugin");
    static Fault module;
}
