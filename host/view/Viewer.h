#pragma once

#include "host/view/TouchPointer.h"

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>

#include <functional>

namespace kthost
{

class SceneView;

/// The examiner viewer on a view: it turns, pans and zooms by mouse and wheel, and has no decoration and no
/// modes. A click on what the scene makes touchable is the scene's.
class Viewer : public SoQtExaminerViewer
{
public:
    /// Shows `view`, which must outlive it, inside `parent`. `rendered` is called after each frame.
    Viewer(SceneView& view, QWidget* parent, std::function<void()> rendered);
    ~Viewer() override;

    /// Undoes the user's navigation.
    void resetToHomePosition() override;

    void viewAll() override;

protected:
    void actualRedraw() override;
    SbBool processSoEvent(const SoEvent* event) override;

private:
    SceneView& _view;
    TouchPointer _touch;
    std::function<void()> _rendered;
};

} // namespace kthost
