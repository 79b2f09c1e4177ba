#include "host/view/SelectionMarker.h"

#include "host/view/SceneView.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SbXfBox3f.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoIndexedLineSet.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>

#include <array>
#include <cstdint>
#include <unordered_set>

namespace kthost
{
namespace
{

constexpr std::size_t mostPlaces = 300;
constexpr int cornersOfBox = 8;
constexpr float lineWidth = 2.0F;
constexpr float haloWidth = 5.0F;

/// The twelve edges; bit 0 of a corner's number is its x, bit 1 its y, bit 2 its z.
constexpr std::array<std::array<int, 2>, 12> edges = {{{{0, 1}},
                                                       {{2, 3}},
                                                       {{4, 5}},
                                                       {{6, 7}},
                                                       {{0, 2}},
                                                       {{1, 3}},
                                                       {{4, 6}},
                                                       {{5, 7}},
                                                       {{0, 4}},
                                                       {{1, 5}},
                                                       {{2, 6}},
                                                       {{3, 7}}}};

struct PlaceSearch
{
    std::unordered_set<const SoNode*> wanted;
    std::vector<CoinRef<SoPath>> found;
};

SoCallbackAction::Response visit(void* data, SoCallbackAction* action, const SoNode* node)
{
    auto& search = *static_cast<PlaceSearch*>(data);
    if (search.found.size() >= mostPlaces)
        return SoCallbackAction::ABORT;
    if (search.wanted.count(node) != 0)
        search.found.emplace_back(action->getCurPath()->copy());
    return SoCallbackAction::CONTINUE;
}

void appendCorners(const SbXfBox3f& box, std::vector<SbVec3f>& corners)
{
    const SbBox3f& upright = box; // as it is before its transform
    const SbVec3f& low = upright.getMin();
    const SbVec3f& high = upright.getMax();
    for (int i = 0; i < cornersOfBox; ++i) {
        SbVec3f corner((i & 1) ? high[0] : low[0], (i & 2) ? high[1] : low[1], (i & 4) ? high[2] : low[2]);
        box.getTransform().multVecMatrix(corner, corner);
        corners.push_back(corner);
    }
}

} // namespace

struct SelectionMarker::Nodes
{
    Nodes()
        : group(new SoSeparator),
          colour(new SoBaseColor),
          halo(new SoDrawStyle),
          style(new SoDrawStyle),
          corners(new SoCoordinate3),
          lines(new SoIndexedLineSet)
    {
        auto* onTop = new SoDepthBuffer;
        onTop->test = FALSE;
        onTop->write = FALSE;
        auto* unlit = new SoLightModel;
        unlit->model = SoLightModel::BASE_COLOR;
        auto* unpickable = new SoPickStyle;
        unpickable->style = SoPickStyle::UNPICKABLE;
        auto* white = new SoBaseColor;
        white->rgb.setValue(1.0F, 1.0F, 1.0F);
        // The lines twice, the first time wide and white: the colour alone may be that of what is behind it.
        for (SoNode* node :
             {static_cast<SoNode*>(onTop), static_cast<SoNode*>(unlit), static_cast<SoNode*>(unpickable),
              static_cast<SoNode*>(corners), static_cast<SoNode*>(white), static_cast<SoNode*>(halo),
              static_cast<SoNode*>(lines), static_cast<SoNode*>(colour), static_cast<SoNode*>(style),
              static_cast<SoNode*>(lines)})
            group->addChild(node);
        group->renderCaching = SoSeparator::OFF;
        corners->point.setNum(0);
        lines->coordIndex.setNum(0);
    }

    CoinRef<SoSeparator> group;
    SoBaseColor* colour;
    SoDrawStyle* halo;
    SoDrawStyle* style;
    SoCoordinate3* corners;
    SoIndexedLineSet* lines;
};

SelectionMarker::SelectionMarker(SceneView& view) : _view(view), _nodes(std::make_unique<Nodes>())
{
    setStyle(Qt::yellow, 1.0);
    _view.overlay()->addChild(_nodes->group.get());
}

SelectionMarker::~SelectionMarker()
{
    _view.overlay()->removeChild(_nodes->group.get());
}

void SelectionMarker::setStyle(const QColor& colour, double pixelRatio)
{
    _nodes->colour->rgb.setValue(static_cast<float>(colour.redF()), static_cast<float>(colour.greenF()),
                                 static_cast<float>(colour.blueF()));
    _nodes->halo->lineWidth = haloWidth * static_cast<float>(pixelRatio);
    _nodes->style->lineWidth = lineWidth * static_cast<float>(pixelRatio);
}

void SelectionMarker::mark(const std::vector<SoNode*>& nodes)
{
    _places.clear();
    if (!nodes.empty()) {
        PlaceSearch search;
        search.wanted.insert(nodes.begin(), nodes.end());
        SoCallbackAction walk;
        walk.addPreCallback(SoNode::getClassTypeId(), visit, &search);
        walk.apply(_view.root());
        _places = std::move(search.found);
    }
    update();
}

void SelectionMarker::update()
{
    if (_places.empty() && _corners.empty())
        return;
    std::vector<SbVec3f> corners;
    SoGetBoundingBoxAction measure{SbViewportRegion()};
    for (const CoinRef<SoPath>& place : _places) {
        measure.apply(place.get());
        if (!measure.getXfBoundingBox().isEmpty())
            appendCorners(measure.getXfBoundingBox(), corners);
    }
    if (corners == _corners)
        return; // a write would have the picture drawn again
    const bool isAsMany = corners.size() == _corners.size();
    _corners.swap(corners);
    _nodes->corners->point.setNum(count() * cornersOfBox);
    _nodes->corners->point.setValues(0, count() * cornersOfBox, _corners.data());
    if (!isAsMany)
        drawEdges();
}

int SelectionMarker::count() const
{
    return static_cast<int>(_corners.size()) / cornersOfBox;
}

void SelectionMarker::drawEdges()
{
    std::vector<std::int32_t> indices;
    for (int box = 0; box < count(); ++box) {
        for (const auto& edge : edges)
            indices.insert(indices.end(),
                           {box * cornersOfBox + edge[0], box * cornersOfBox + edge[1], SO_END_LINE_INDEX});
    }
    _nodes->lines->coordIndex.setNum(static_cast<int>(indices.size()));
    _nodes->lines->coordIndex.setValues(0, static_cast<int>(indices.size()), indices.data());
}

} // namespace kthost
