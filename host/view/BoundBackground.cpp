#include "host/view/BoundBackground.h"

#include "host/view/Search.h"

#include <Inventor/VRMLnodes/SoVRMLBackground.h>

namespace kthost
{

namespace
{

constexpr float Horizon =
    1.5707F; ///< As an angle from the zenith or the nadir; the renderer takes no larger one.

SoPathList backgrounds(SoNode* scene)
{
    return findByType(scene, SoVRMLBackground::getClassTypeId());
}

} // namespace

bool hasBackground(SoNode* scene)
{
    return backgrounds(scene).getLength() > 0;
}

SoNode* makeDefaultBackground()
{
    // Dark, since a scene without a background was made to be seen on VRML97's black: its text is often
    // white.
    const float sky[][3] = {{0.15F, 0.17F, 0.20F}, {0.24F, 0.27F, 0.31F}, {0.40F, 0.43F, 0.47F}};
    const float ground[][3] = {{0.12F, 0.13F, 0.15F}, {0.21F, 0.23F, 0.26F}, {0.40F, 0.43F, 0.47F}};
    const float angles[] = {0.9F, Horizon};

    auto* background = new SoVRMLBackground;
    background->skyColor.setValues(0, 3, sky);
    background->skyAngle.setValues(0, 2, angles);
    background->groundColor.setValues(0, 3, ground);
    background->groundAngle.setValues(0, 2, angles);
    return background;
}

SoNode* hiddenFirstBackground(SoNode* scene)
{
    const SoPathList found = backgrounds(scene);
    if (found.getLength() < 2)
        return nullptr;
    return found[0]->getTail();
}

} // namespace kthost
