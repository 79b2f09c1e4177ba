#include "host/view/SceneView.h"

#include "host/view/BoundBackground.h"
#include "host/view/Search.h"
#include "host/view/ViewpointFollower.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/CoinRef.h"
#include "host/vrml/NodeNames.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SbXfBox3f.h>
#include <Inventor/VRMLnodes/SoVRMLNavigationInfo.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/lists/SoPathList.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTransformSeparator.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace kthost
{

namespace
{

constexpr float DefaultFieldOfView = 0.785398F;
constexpr float DefaultDistance = 10.0F;

/// Half of what VRML97 lets come near a visitor unless the scene says otherwise.
constexpr float DefaultNear = 0.125F;

/// The first one in the file is the bound one; null where there is none.
SoVRMLNavigationInfo* navigationInfo(SoNode* scene)
{
    if (!scene)
        return nullptr;
    const SoPathList found = findByType(scene, SoVRMLNavigationInfo::getClassTypeId());
    return found.getLength() == 0 ? nullptr : static_cast<SoVRMLNavigationInfo*>(found[0]->getTail());
}

float visitorsNear(const SoVRMLNavigationInfo* info)
{
    const bool given = info && info->avatarSize.getNum() > 0 && info->avatarSize[0] > 0.0F;
    return given ? info->avatarSize[0] / 2.0F : DefaultNear;
}

/// The near plane is not nearer than this. A camera within the scene's bounds could have it anywhere; but the
/// nearer it is, the farther things must be apart for a depth buffer to tell which is in front.
float nearLimit(float farthest, float visitor)
{
    constexpr float Wanted = 1.0F / 2000.0F;
    constexpr float Possible = 1.0F / 20000.0F;
    return std::max(farthest * Possible, std::min(farthest * Wanted, visitor));
}

QString labelOf(const SoPath& path, int number, const NodeNames* names)
{
    const auto* viewpoint = static_cast<const SoVRMLViewpoint*>(path.getTail());
    if (viewpoint->description.getValue().getLength() > 0)
        return QString::fromUtf8(viewpoint->description.getValue().getString());
    const std::string name = viewpoint->getName().getString();
    if (!name.empty())
        return QString::fromStdString(names ? names->original(name) : name);
    return QStringLiteral("Viewpoint %1").arg(number);
}

SbViewportRegion regionOf(const QSize& size)
{
    return SbViewportRegion(static_cast<short>(std::clamp(size.width(), 1, 32767)),
                            static_cast<short>(std::clamp(size.height(), 1, 32767)));
}

} // namespace

struct SceneView::Nodes
{
    Nodes()
        : root(new SoSeparator),
          camera(new SoPerspectiveCamera),
          headlight(new SoDirectionalLight),
          behind(new SoSeparator),
          content(new SoSeparator),
          overlay(new SoSeparator)
    {
        // Turned with the camera, and lighting all that follows: a transform separator keeps the turn to
        // itself.
        auto* headlightFrame = new SoTransformSeparator;
        auto* turn = new SoRotation;
        turn->rotation.connectFrom(&camera->orientation);
        headlight->direction = SbVec3f(0.0F, 0.0F, -1.0F);
        headlightFrame->addChild(turn);
        headlightFrame->addChild(headlight.get());

        // The root's cache would be spoilt in each frame that the camera moves.
        root->renderCaching = SoSeparator::OFF;
        for (SoNode* node : {static_cast<SoNode*>(camera.get()), static_cast<SoNode*>(headlightFrame),
                             static_cast<SoNode*>(behind.get()), static_cast<SoNode*>(content.get()),
                             static_cast<SoNode*>(overlay.get())})
            root->addChild(node);
        content->renderCaching = SoSeparator::OFF;
    }

    CoinRef<SoSeparator> root;
    CoinRef<SoPerspectiveCamera> camera;
    CoinRef<SoDirectionalLight> headlight;
    CoinRef<SoSeparator> behind;
    CoinRef<SoSeparator> content;
    CoinRef<SoSeparator> overlay;
    CoinRef<SoNode> scene;
    float visitorsNear = DefaultNear;
};

struct SceneView::Viewpoints
{
    std::vector<CoinRef<SoPath>> paths;
    QStringList labels;
    int bound = -1;
    ViewpointFollower follower;
};

SceneView::SceneView()
{
    CoinLibrary::init();
    _nodes = std::make_unique<Nodes>();
    _viewpoints = std::make_unique<Viewpoints>();
    setScene(nullptr);
}

SceneView::~SceneView() = default;

void SceneView::setScene(SoNode* scene, const NodeNames* names)
{
    const CoinRef<SoNode> kept(scene);
    _viewpoints = std::make_unique<Viewpoints>();
    _nodes->content->removeAllChildren();
    _nodes->behind->removeAllChildren();
    _nodes->scene = kept;
    const SoVRMLNavigationInfo* info = navigationInfo(scene);
    _nodes->headlight->on = !info || info->headlight.getValue();
    _nodes->visitorsNear = visitorsNear(info);
    if (!scene || !hasBackground(scene))
        _nodes->behind->addChild(makeDefaultBackground());
    if (scene) {
        _nodes->content->addChild(scene);
        if (SoNode* background = hiddenFirstBackground(scene))
            _nodes->content->addChild(background);
        const SoPathList found = findByType(scene, SoVRMLViewpoint::getClassTypeId());
        for (int i = 0; i < found.getLength(); ++i) {
            _viewpoints->paths.emplace_back(found[i]);
            _viewpoints->labels += labelOf(*found[i], i + 1, names);
        }
    }
    _viewpoints->bound = _viewpoints->paths.empty() ? -1 : 0;
    resetCamera();
}

SoSeparator* SceneView::root() const
{
    return _nodes->root.get();
}

SoSeparator* SceneView::overlay() const
{
    return _nodes->overlay.get();
}

SoPerspectiveCamera* SceneView::camera() const
{
    return _nodes->camera.get();
}

void SceneView::updateViewpoint()
{
    _viewpoints->follower.follow(*_nodes->camera);
}

QStringList SceneView::viewpoints() const
{
    return _viewpoints->labels;
}

int SceneView::boundViewpoint() const
{
    return _viewpoints->bound;
}

void SceneView::bindViewpoint(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= _viewpoints->paths.size())
        return;
    _viewpoints->bound = index;
    resetCamera();
}

void SceneView::resetCamera()
{
    SoPerspectiveCamera& camera = *_nodes->camera;
    if (_viewpoints->bound >= 0) {
        _viewpoints->follower.bind(_viewpoints->paths[static_cast<std::size_t>(_viewpoints->bound)].get(),
                                   camera);
    } else {
        camera.heightAngle = DefaultFieldOfView;
        camera.orientation = SbRotation::identity();
        camera.position = SbVec3f(0.0F, 0.0F, DefaultDistance);
        camera.focalDistance = DefaultDistance;
        viewAll(QSize(1, 1));
    }
}

void SceneView::viewAll(const QSize& size)
{
    SoGetBoundingBoxAction measure(regionOf(size));
    measure.apply(_nodes->content.get());
    if (!measure.getBoundingBox().isEmpty())
        _nodes->camera->viewAll(_nodes->content.get(), regionOf(size));
}

void SceneView::fitClipping(const QSize& size)
{
    SoPerspectiveCamera& camera = *_nodes->camera;
    SoGetBoundingBoxAction measure(regionOf(size));
    measure.apply(_nodes->root.get());
    SbXfBox3f box = measure.getXfBoundingBox();
    if (box.isEmpty())
        return;
    SbMatrix toCamera;
    toCamera.setTranslate(-camera.position.getValue());
    box.transform(toCamera);
    toCamera.setRotate(camera.orientation.getValue().inverse());
    box.transform(toCamera);
    const SbBox3f seen = box.project();

    constexpr float Slack = 0.001F;
    const float farthest = -seen.getMin()[2] * (1.0F + Slack);
    if (!std::isfinite(farthest) || farthest <= 0.0F)
        return; // all of it is behind the camera
    camera.farDistance = farthest;
    camera.nearDistance =
        std::max(-seen.getMax()[2] * (1.0F - Slack), nearLimit(farthest, _nodes->visitorsNear));
}

QColor SceneView::clearColor()
{
    return Qt::black; // the sky of a Background without colours
}

} // namespace kthost
