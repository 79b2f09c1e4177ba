#include "host/view/RenderView.h"

#include "host/view/KeyReporter.h"
#include "host/view/SceneView.h"
#include "host/view/Viewer.h"

#include <Inventor/Qt/SoQt.h>

#include <QKeyEvent>
#include <QVBoxLayout>

namespace kthost
{

namespace
{

/// The viewer's library must be ready before its first viewer; it takes the application that is there.
QWidget* madeReady(QWidget* widget)
{
    static const bool ready = (SoQt::init(widget), true);
    Q_UNUSED(ready)
    return widget;
}

} // namespace

RenderView::RenderView(SceneView& view, QWidget* parent)
    : QWidget(parent),
      _view(view),
      _viewer(std::make_unique<Viewer>(view, madeReady(this), [this] { finishFrame(); })),
      _keys(new KeyReporter(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_viewer->getWidget());

    QWidget* window = _viewer->getGLWidget();
    window->setFocusPolicy(Qt::StrongFocus);
    window->setAccessibleName(tr("Scene"));
    window->setAccessibleDescription(tr("The scene in three dimensions; turned, panned and zoomed by mouse"));
    window->installEventFilter(this);
    window->installEventFilter(_keys); // the last one comes first
    setFocusProxy(window);
    setAccessibleName(tr("Scene"));
    _viewer->show();
}

RenderView::~RenderView() = default;

bool RenderView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        // Where the display has several pixels to the window's one, the viewer's library makes its window
        // that much too large.
        auto* window = static_cast<QWidget*>(watched);
        const QSize right = window->parentWidget()->size();
        if (window->size() != right) {
            window->resize(right);
            return true;
        }
        _isOfNewSize = true;
    }
    if (event->type() == QEvent::KeyPress) {
        // The library would keep them to itself, and the focus could not leave by the keyboard.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
            return focusNextPrevChild(key == Qt::Key_Tab);
    }
    return QWidget::eventFilter(watched, event);
}

void RenderView::finishFrame()
{
    // The first frame of another size may still go to a buffer of the former one, which leaves the rest of
    // the window black; a scene that stands still would never be drawn again.
    if (_isOfNewSize) {
        _isOfNewSize = false;
        QMetaObject::invokeMethod(
            this, [this] { _viewer->scheduleRedraw(); }, Qt::QueuedConnection);
    }
    emit frameRendered();
}

void RenderView::viewAll()
{
    _viewer->viewAll();
}

Picture RenderView::picture(const QSize& size)
{
    return _pictures.render(_view, size.isEmpty() ? this->size() * devicePixelRatioF() : size);
}

} // namespace kthost
