#pragma once

#include "host/view/PictureRenderer.h"

#include <QWidget>

#include <memory>

namespace kthost
{

class KeyReporter;
class SceneView;
class Viewer;

/// The widget that shows a view: turned, panned and zoomed by mouse and wheel, the Home key goes back. Takes
/// the focus by Tab and click, lets it go on by Tab, and tells plug-ins of key presses (see KeyReporter). It
/// draws when something in the view changes. GUI thread.
class RenderView : public QWidget
{
    Q_OBJECT

public:
    /// Shows `view`, which must outlive the widget. The one QApplication must be there, on a display with
    /// OpenGL.
    explicit RenderView(SceneView& view, QWidget* parent = nullptr);
    ~RenderView() override;

    SceneView& view() { return _view; }

    /// Moves the camera, without turning it, until the whole scene fits.
    void viewAll();

    /// What the widget shows now, smoothed, in any size; without one in the widget's own, in pixels of the
    /// screen.
    Picture picture(const QSize& size = QSize());

    QSize sizeHint() const override { return QSize(960, 600); }

signals:
    /// A frame was drawn.
    void frameRendered();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void finishFrame();

    SceneView& _view;
    PictureRenderer _pictures;
    std::unique_ptr<Viewer> _viewer;
    KeyReporter* _keys;
    bool _isOfNewSize = false;
};

} // namespace kthost
