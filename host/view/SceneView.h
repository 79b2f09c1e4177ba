#pragma once

#include <QColor>
#include <QSize>
#include <QStringList>

#include <memory>

class SoNode;
class SoPerspectiveCamera;
class SoSeparator;

namespace kthost
{

class NodeNames;

/// The view onto a scene, whoever shows it, a window or a picture: the camera, the headlight and the
/// background around the scene's own nodes. GUI thread.
///
/// The camera stands where the bound viewpoint does, and goes with it when an animation moves it; what the
/// user has added by navigating is kept, relative to the viewpoint. Without a viewpoint in the scene it sees
/// all of it, from the front.
class SceneView
{
public:
    /// Makes the renderer's library ready where nobody has; the view is empty.
    SceneView();
    ~SceneView();

    SceneView(const SceneView&) = delete;
    SceneView& operator=(const SceneView&) = delete;

    /// Shows `scene`, which is shared, not copied and not changed; null shows nothing. Binds the scene's
    /// first viewpoint; takes the headlight from its first NavigationInfo and the background from its first
    /// Background, as VRML97 has it. `names` are those of the scene's reading, needed for no longer than the
    /// call; null where its nodes have their own.
    void setScene(SoNode* scene, const NodeNames* names = nullptr);

    /// What is rendered. The same node for as long as the view lives.
    SoSeparator* root() const;

    /// Drawn last, in the scene's own space: for marks that are not part of the scene. Empty at first, kept
    /// over setScene().
    SoSeparator* overlay() const;

    SoPerspectiveCamera* camera() const;

    /// Once a frame, after the scene was animated: takes the camera along with the bound viewpoint.
    void updateViewpoint();

    /// The descriptions of the scene's viewpoints, in document order; a viewpoint without one goes by its
    /// node's name, else by its number.
    QStringList viewpoints() const;

    /// Index into viewpoints(); -1 where the scene has none.
    int boundViewpoint() const;

    /// The camera goes where this viewpoint stands now. An index that does not exist is ignored.
    void bindViewpoint(int index);

    /// Undoes the user's navigation: back to the bound viewpoint, or without one to a view of the whole
    /// scene.
    void resetCamera();

    /// Moves the camera, without turning it, until it sees the whole scene in a picture of this size.
    void viewAll(const QSize& size);

    /// Puts the near and far planes just around the scene as the camera sees it in a picture of this size.
    void fitClipping(const QSize& size);

    /// What shows where nothing is drawn, not even a background.
    static QColor clearColor();

private:
    struct Nodes;
    struct Viewpoints;

    std::unique_ptr<Nodes> _nodes;
    std::unique_ptr<Viewpoints> _viewpoints;
};

} // namespace kthost
