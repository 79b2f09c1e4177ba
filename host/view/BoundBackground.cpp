#include "host/view/BoundBackground.h"

#include "host/view/Search.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/VRMLnodes/SoVRMLBackground.h>
#include <Inventor/actions/SoGetMatrixAction.h>
#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoSeparator.h>

namespace kthost
{

namespace
{

constexpr float Horizon = 1.5707963F; ///< As an angle from the zenith or the nadir.

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
    const float sky[][3] = {{0.53F, 0.58F, 0.63F}, {0.72F, 0.76F, 0.79F}, {0.89F, 0.90F, 0.91F}};
    const float ground[][3] = {{0.47F, 0.49F, 0.51F}, {0.70F, 0.72F, 0.73F}, {0.89F, 0.90F, 0.91F}};
    const float angles[] = {0.9F, Horizon};

    auto* background = new SoVRMLBackground;
    background->skyColor.setValues(0, 3, sky);
    background->skyAngle.setValues(0, 2, angles);
    background->groundColor.setValues(0, 3, ground);
    background->groundAngle.setValues(0, 2, angles);
    return background;
}

SoNode* makeFirstBackgroundWin(SoNode* scene)
{
    const SoPathList found = backgrounds(scene);
    if (found.getLength() < 2)
        return nullptr;
    SoGetMatrixAction locate(SbViewportRegion(1, 1));
    locate.apply(found[0]);
    auto* place = new SoMatrixTransform;
    place->matrix = locate.getMatrix();
    auto* group = new SoSeparator;
    group->addChild(place);
    group->addChild(found[0]->getTail());
    return group;
}

} // namespace kthost
