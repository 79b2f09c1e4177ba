#pragma once

#include "host/vrml/CoinRef.h"

#include <Inventor/SbVec3f.h>
#include <Inventor/SoPath.h>

#include <QColor>

#include <memory>
#include <vector>

class SoNode;

namespace kthost
{

class SceneView;

/// Marks nodes of the scene in its view: a box around each place where one is drawn, on top of the picture
/// and going with its animation. What has no extent, such as a light, gets no mark. GUI thread.
class SelectionMarker
{
public:
    /// Draws into the overlay of `view`, which must outlive the marker.
    explicit SelectionMarker(SceneView& view);
    ~SelectionMarker();

    SelectionMarker(const SelectionMarker&) = delete;
    SelectionMarker& operator=(const SelectionMarker&) = delete;

    /// Marks these nodes and no others. More places than some hundreds are left unmarked: the picture would
    /// be nothing but boxes. To be called again when another scene is shown.
    void mark(const std::vector<SoNode*>& nodes);

    /// The colour of the boxes, and the pixels of the screen that a line of width 1 takes.
    void setStyle(const QColor& colour, double pixelRatio);

    /// Once a frame, after the scene was animated: takes the boxes along. Costs nothing where none is there.
    void update();

    /// How many boxes are drawn.
    int count() const;

private:
    struct Nodes;

    void drawEdges();

    SceneView& _view;
    std::vector<CoinRef<SoPath>> _places;
    std::vector<SbVec3f> _corners; ///< Eight a box.
    std::unique_ptr<Nodes> _nodes;
};

} // namespace kthost
