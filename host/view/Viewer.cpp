#include "host/view/Viewer.h"

#include "host/view/SceneView.h"

#include <Inventor/SbColor.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoSeparator.h>

#include <utility>

namespace kthost
{

Viewer::Viewer(SceneView& view, QWidget* parent, std::function<void()> rendered)
    : SoQtExaminerViewer(parent, "", TRUE, BUILD_NONE, BROWSER), _view(view), _rendered(std::move(rendered))
{
    setDecoration(FALSE);
    setPopupMenuEnabled(FALSE);
    setFeedbackVisibility(FALSE);
    setAnimationEnabled(FALSE); // a careless release would leave the scene spinning
    setHeadlight(FALSE);        // the view brings its own,
    setAutoClipping(FALSE);     // and sees to its planes, so that pictures show what the window does
    setTransparencyType(SoGLRenderAction::SORTED_OBJECT_BLEND);
    const QColor color = SceneView::clearColor();
    setBackgroundColor(SbColor(static_cast<float>(color.redF()), static_cast<float>(color.greenF()),
                               static_cast<float>(color.blueF())));
    setSceneGraph(view.root());
    setViewing(TRUE);
}

Viewer::~Viewer()
{
    setSceneGraph(nullptr);
}

void Viewer::resetToHomePosition()
{
    _view.resetCamera();
}

void Viewer::viewAll()
{
    const SbVec2s size = getGLSize();
    _view.viewAll(QSize(size[0], size[1]));
}

void Viewer::actualRedraw()
{
    const SbVec2s size = getGLSize();
    _view.fitClipping(QSize(size[0], size[1]));
    SoQtExaminerViewer::actualRedraw();
    _rendered();
}

SbBool Viewer::processSoEvent(const SoEvent* event)
{
    // Escape would switch to a mode where the mouse does nothing, and nothing would show it.
    if (SO_KEY_PRESS_EVENT(event, ESCAPE) || SO_KEY_RELEASE_EVENT(event, ESCAPE))
        return FALSE;
    if (_touch.handle(*event, *getSceneManager()))
        return TRUE;
    return SoQtExaminerViewer::processSoEvent(event);
}

} // namespace kthost
