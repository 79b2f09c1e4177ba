#pragma once

#include "host/vrml/CoinRef.h"

#include <Inventor/SbRotation.h>
#include <Inventor/SbVec3f.h>
#include <Inventor/SoPath.h>

class SoPerspectiveCamera;

namespace kthost
{

/// Where a camera stands and where it looks, in the scene's own space.
struct CameraPose
{
    SbVec3f position{0.0F, 0.0F, 0.0F};
    SbRotation orientation = SbRotation::identity();

    bool operator==(const CameraPose& other) const
    {
        return position == other.position && orientation == other.orientation;
    }
    bool operator!=(const CameraPose& other) const { return !(*this == other); }
};

/// Ties a camera to a Viewpoint node: the camera goes where the viewpoint goes, however it is moved, by
/// fields of its own or by nodes above it. What the user did to the camera in between stays, as seen from the
/// viewpoint.
class ViewpointFollower
{
public:
    /// The camera goes to the viewpoint at the end of `path`, and takes its field of view. Null unties it.
    void bind(SoPath* path, SoPerspectiveCamera& camera);

    /// Takes the camera along; does nothing to it where the viewpoint has not moved or nothing is bound.
    void follow(SoPerspectiveCamera& camera);

private:
    CameraPose viewpointPose() const;
    float fieldOfView() const;

    CoinRef<SoPath> _path;
    CameraPose _viewpoint; ///< The viewpoint as last seen.
    CameraPose _given;     ///< What the camera last got from here; anything else in it is the user's doing.
    CameraPose
        _offset; ///< What the user added, in the viewpoint's own space. Kept, so that no error adds up.
    float _fieldOfView = 0.0F;
};

} // namespace kthost
