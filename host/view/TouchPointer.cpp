#include "host/view/TouchPointer.h"

#include <Inventor/SoPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/SoSceneManager.h>
#include <Inventor/VRMLnodes/SoVRMLTouchSensor.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/events/SoLocation2Event.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/misc/SoChildList.h>

namespace kthost
{
namespace
{

/// A TouchSensor makes its siblings touchable, and all below them.
bool holdsTouchSensor(const SoNode& node)
{
    const SoChildList* const children = node.getChildren();
    for (int i = 0; children && i < children->getLength(); ++i) {
        const SoNode* const child = (*children)[i];
        if (child->isOfType(SoVRMLTouchSensor::getClassTypeId()) &&
            static_cast<const SoVRMLTouchSensor*>(child)->enabled.getValue())
            return true;
    }
    return false;
}

} // namespace

bool TouchPointer::isOnTouchable(const SoMouseButtonEvent& event, SoSceneManager& scene)
{
    if (!scene.getSceneGraph())
        return false;
    SoRayPickAction pick(scene.getViewportRegion());
    pick.setPoint(event.getPosition());
    pick.apply(scene.getSceneGraph());
    const SoPickedPoint* const point = pick.getPickedPoint();
    for (int i = 0; point && i < point->getPath()->getLength(); ++i) {
        if (holdsTouchSensor(*point->getPath()->getNode(i)))
            return true;
    }
    return false;
}

bool TouchPointer::handle(const SoEvent& event, SoSceneManager& scene)
{
    if (SO_MOUSE_PRESS_EVENT(&event, BUTTON1)) {
        const auto& press = static_cast<const SoMouseButtonEvent&>(event);
        _isTouching = isOnTouchable(press, scene);
        if (_isTouching) {
            // The sensor must have seen the pointer come before it is pressed.
            SoLocation2Event arrival;
            arrival.setTime(event.getTime());
            arrival.setPosition(event.getPosition());
            scene.processEvent(&arrival);
        }
    }
    const bool isMouse = event.isOfType(SoMouseButtonEvent::getClassTypeId()) ||
                         event.isOfType(SoLocation2Event::getClassTypeId());
    if (!_isTouching || !isMouse)
        return false;
    scene.processEvent(&event);
    if (SO_MOUSE_RELEASE_EVENT(&event, BUTTON1))
        _isTouching = false;
    return true;
}

} // namespace kthost
