// Edits of the scene, the frame loop, messages and keys.
#include "tests/model/Pair.h"
#include "tests/model/mustEqual.h"
#include "tests/support/Scene.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktScenegraph.h>
#include <osg/Name.h>

#include <QKeyEvent>

#include <map>

namespace kt::test
{
namespace
{

osg::NodeCorePtr coreOf(const std::string& kind)
{
    if (kind == "TimeSensor")
        return osg::NodeCorePtr(osg::TimeSensor::create());
    if (kind == "RecordingSensor")
        return osg::NodeCorePtr(RecordingSensor::create());
    return kind.empty() ? osg::NodeCorePtr() : OtherCore::create();
}

const std::map<std::string, SceneModel::Operation> operations{
    {"animationStart", &SceneModel::start},     {"animationStop", &SceneModel::stop},
    {"animationToggle", &SceneModel::toggle},   {"animationPause", &SceneModel::stop},
    {"animationContinue", &SceneModel::resume}, {"animationReset", &SceneModel::reset}};

} // namespace

std::size_t Pair::placeOf(unsigned number) const
{
    const std::size_t count = model.scene.nodes.size();
    return count == 0 ? 0 : number % count;
}

void Pair::perform(const AddNode& step)
{
    if (!model.scene.isOpen)
        return;
    const osg::NodePtr node = osg::Node::create(coreOf(step.kind));
    if (step.name)
        node->addAttachment(osg::Name::create(*step.name));
    const std::vector<Placed> present = nodes();
    const std::size_t under = step.under == 0 ? present.size() : placeOf(step.under);
    const osg::NodePtr parent =
        under < present.size() ? present[under].node : osg::NodePtr(ktScenegraph::getRootNode());
    parent->addChild(node);
    model.scene.add(under, step.kind, step.name);
}

void Pair::perform(const RemoveNode& step)
{
    if (model.scene.nodes.empty())
        return;
    const osg::NodePtr node = nodes()[placeOf(step.node)].node;
    node->getParent()->subChild(node);
    model.scene.remove(placeOf(step.node));
}

void Pair::perform(const RenameNode& step)
{
    if (model.scene.nodes.empty())
        return;
    const std::size_t place = placeOf(step.node);
    ktScenegraph::setNodeName(step.isAnnounced, nodes()[place].node, step.name.c_str(), true);
    model.scene.rename(place, step.name, step.isAnnounced);
}

void Pair::perform(const EndTurn&)
{
    host.session.frames().announceSceneChange();
    model.endTurn();
}

void Pair::perform(const Run& step)
{
    if (isByScript(step.road))
        mustEqual("ktHost.advance()",
                  host.ask("ktHost.advance(" + std::to_string(step.seconds) + ", " +
                           std::to_string(step.framesPerSecond) + ')'),
                  std::string("None"));
    else
        host.session.frames().run(step.seconds, step.framesPerSecond, [] {});
    model.run(step.seconds, step.framesPerSecond);
}

void Pair::perform(const Message& step)
{
    if (isByScript(step.road)) {
        mustEqual("ktHost.sendMessage()",
                  host.ask("ktHost.sendMessage('" + std::string(step.message) +
                           "', animation=" + pythonText(step.animation) + ')'),
                  std::string("1"));
    } else {
        ktMessage message;
        message.set("animation-name", step.animation);
        mustEqual("listeners", ktController::sendMessage(step.message, message), 1);
    }
    if (!step.animation.empty())
        (model.scene.*operations.at(step.message))(step.animation);
}

void Pair::perform(const OddMessage& step)
{
    ktMessage message;
    message.set("animation-name", 7);
    withComplaint("animation-name", [&] { ktController::sendMessage(step.message, message); });
}

void Pair::perform(const Deliver& step)
{
    ktMessage message(step.id);
    ktController::deliver(message);
    if (step.id == 16)
        model.module.clear();
    else if (step.id == 32768)
        model.module.scan();
}

void Pair::perform(const PressKey& step)
{
    const auto modifiers = static_cast<Qt::KeyboardModifiers>(step.modifiers);
    QKeyEvent press(QEvent::KeyPress, step.key, modifiers);
    QKeyEvent release(QEvent::KeyRelease, step.key, modifiers);
    const bool isTaken = host.keys.eventFilter(nullptr, &press);
    host.keys.eventFilter(nullptr, &release);
    mustEqual("the key was taken", isTaken, model.module.pressKey(step.key, step.modifiers));
}

} // namespace kt::test
