#include "host/view/ViewpointFollower.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoGetMatrixAction.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include <algorithm>

namespace kthost
{

namespace
{

/// How far before the camera the scene's middle lies: what examining turns about. Without a scene before it,
/// some distance.
float distanceToScene(SoPath& path, const CameraPose& pose)
{
    constexpr float SomeDistance = 10.0F;
    SoGetBoundingBoxAction measure(SbViewportRegion(1, 1));
    measure.apply(path.getHead());
    if (measure.getBoundingBox().isEmpty())
        return SomeDistance;
    SbVec3f ahead;
    pose.orientation.multVec(SbVec3f(0.0F, 0.0F, -1.0F), ahead);
    const float distance = (measure.getBoundingBox().getCenter() - pose.position).dot(ahead);
    return distance > 0.0F ? distance : SomeDistance;
}

CameraPose poseOf(const SoPerspectiveCamera& camera)
{
    CameraPose pose;
    pose.position = camera.position.getValue();
    pose.orientation = camera.orientation.getValue();
    return pose;
}

void setPose(SoPerspectiveCamera& camera, const CameraPose& pose)
{
    camera.position = pose.position;
    camera.orientation = pose.orientation;
}

/// `pose` in the space of `frame`. A product of rotations applies its left factor first.
CameraPose seenFrom(const CameraPose& frame, const CameraPose& pose)
{
    const SbRotation back = frame.orientation.inverse();
    CameraPose seen;
    back.multVec(pose.position - frame.position, seen.position);
    seen.orientation = pose.orientation * back;
    return seen;
}

CameraPose placedAt(const CameraPose& frame, const CameraPose& seen)
{
    CameraPose pose;
    frame.orientation.multVec(seen.position, pose.position);
    pose.position += frame.position;
    pose.orientation = seen.orientation * frame.orientation;
    return pose;
}

/// As VRML97 has it: where the file gives no position, the reader's node says 0 0 0.
SbVec3f positionOf(const SoVRMLViewpoint& viewpoint)
{
    return viewpoint.position.isDefault() ? SbVec3f(0.0F, 0.0F, 10.0F) : viewpoint.position.getValue();
}

} // namespace

void ViewpointFollower::bind(SoPath* path, SoPerspectiveCamera& camera)
{
    _path = CoinRef<SoPath>(path);
    if (!path)
        return;
    _viewpoint = viewpointPose();
    _offset = CameraPose();
    _fieldOfView = fieldOfView();
    camera.heightAngle = _fieldOfView;
    camera.focalDistance = distanceToScene(*path, _viewpoint);
    setPose(camera, _viewpoint);
    _given = poseOf(camera);
}

void ViewpointFollower::follow(SoPerspectiveCamera& camera)
{
    if (!_path)
        return;
    const float angle = fieldOfView();
    if (angle != _fieldOfView) {
        camera.heightAngle = angle;
        _fieldOfView = angle;
    }
    const CameraPose pose = viewpointPose();
    if (pose == _viewpoint)
        return;
    const CameraPose present = poseOf(camera);
    if (present != _given)
        _offset = seenFrom(_viewpoint, present);
    setPose(camera, placedAt(pose, _offset));
    _given = poseOf(camera);
    _viewpoint = pose;
}

CameraPose ViewpointFollower::viewpointPose() const
{
    const auto* viewpoint = static_cast<const SoVRMLViewpoint*>(_path->getTail());
    SoGetMatrixAction locate(SbViewportRegion(1, 1));
    locate.apply(_path.get());
    const SbMatrix& matrix = locate.getMatrix();

    CameraPose pose;
    matrix.multVecMatrix(positionOf(*viewpoint), pose.position);
    SbVec3f translation;
    SbVec3f scale;
    SbRotation rotation;
    SbRotation scaleOrientation;
    matrix.getTransform(translation, rotation, scale, scaleOrientation);
    pose.orientation = viewpoint->orientation.getValue() * rotation;
    return pose;
}

float ViewpointFollower::fieldOfView() const
{
    // VRML97 means the smaller angle of the two, and so does the camera with its usual mapping onto the
    // window.
    constexpr float Narrowest = 0.001F;
    constexpr float Widest = 3.1F;
    const auto* viewpoint = static_cast<const SoVRMLViewpoint*>(_path->getTail());
    return std::clamp(viewpoint->fieldOfView.getValue(), Narrowest, Widest);
}

} // namespace kthost
