#include "host/app/FrameLoop.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktFailures.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>
#include <osg/FieldContainerType.h>
#include <osg/PThreadBase.h>

#include <algorithm>
#include <string>
#include <unordered_set>

namespace kthost
{
namespace
{

/// A step that would be shorter than this, in seconds, is left out: it comes from rounding.
constexpr double shortestStep = 1e-9;

void callModules(void (ktModuleBase::*call)(), const char* what)
{
    ktModuleBase::forEach([&](ktModuleBase& module) {
        const std::string name = module.moduleName().toStdString();
        ktFailures::survived([&] { return name + ": " + what; }, [&] { (module.*call)(); });
    });
}

std::string placeOf(const SceneSensor& entry)
{
    const char* name = NodeUtils::getName(entry.node);
    return std::string("time sensor ") + (name ? name : "");
}

} // namespace

osg::TimeSensorPtr timeSensorOf(const osg::NodePtr& node)
{
    const osg::NodeCorePtr& core = node->getCore();
    if (!core || !core->getType().isDerivedFrom(osg::TimeSensor::getClassType()))
        return {};
    return osg::staticCast<osg::TimeSensor>(core);
}

FrameLoop::FrameLoop()
{
    osg::PThreadBase::setCurrentChangeList(&_changes);
}

FrameLoop::~FrameLoop()
{
    osg::PThreadBase::setCurrentChangeList(nullptr);
}

void FrameLoop::advanceTo(double now)
{
    ktController::setSimulationTime(std::max(now, ktController::getSimulationTime()));
    callModules(&ktModuleBase::loop, "loop");
    const double time = ktController::getSimulationTime();
    if (_eventSource)
        _eventSource(time);
    const std::vector<SceneSensor> present = sensors(); // what an edit leads to may change the scene
    for (const SceneSensor& entry : present) {
        // It tells a core that may be of a plug-in's own class.
        ktFailures::survived([&] { return placeOf(entry); }, [&] { entry.sensor->advance(time); });
    }
    settle();
}

void FrameLoop::run(double seconds, double framesPerSecond, const std::function<void()>& afterStep)
{
    const double begin = ktController::getSimulationTime();
    const double end = begin + seconds;
    for (double step = 1.0;; step += 1.0) {
        const double time = begin + step / framesPerSecond;
        const bool isLast = time >= end - shortestStep;
        if (isLast && !(seconds > 0.0))
            return;
        advanceTo(isLast ? end : time);
        afterStep();
        if (isLast)
            return;
    }
}

void FrameLoop::settle()
{
    // Followers and modules may edit again; that is for the next frame.
    _drained.swap(_changes);
    if (_follower && !_drained.isEmpty())
        _follower(_drained);
    _drained.clear();
    announceSceneChange();
    callModules(&ktModuleBase::update, "update");
}

void FrameLoop::announceSceneChange()
{
    if (!ktScenegraph::takeSceneChanged())
        return;
    ktMessage message(ktMessageId::SceneChanged);
    ktController::deliver(message);
    if (_sceneListener)
        _sceneListener();
}

void FrameLoop::forget()
{
    _changes.clear();
    _drained.clear();
    _sensors.clear();
    _sensorRoot = {};
}

const std::vector<SceneSensor>& FrameLoop::sensors()
{
    const osg::NodePtr root = ktScenegraph::getRootNode();
    if (root == _sensorRoot && (!root || root->getStructureRevision() == _sensorRevision))
        return _sensors;
    _sensors.clear();
    _sensorRoot = root;
    _sensorRevision = root ? root->getStructureRevision() : 0;
    std::unordered_set<const osg::FieldContainer*> seen;
    std::vector<osg::NodePtr> pending;
    if (root)
        pending.push_back(root);
    while (!pending.empty()) {
        const osg::NodePtr node = std::move(pending.back());
        pending.pop_back();
        const osg::TimeSensorPtr sensor = timeSensorOf(node);
        if (sensor && seen.insert(sensor.get()).second)
            _sensors.push_back({node, sensor});
        for (std::size_t i = node->getNChildren(); i > 0; --i)
            pending.push_back(node->getChild(i - 1));
    }
    return _sensors;
}

} // namespace kthost
