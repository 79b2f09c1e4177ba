#include "host/view/RenderView.h"

#include "host/view/KeyReporter.h"
#include "host/view/SceneView.h"
#include "host/view/Viewer.h"

#include <Inventor/Qt/SoQt.h>

#include <QEvent>
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

/// The viewer's library takes the pixels of the screen for those of the window where they differ, and makes
/// its window that much too large.
class SizeKeeper : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* window = static_cast<QWidget*>(watched);
        const QSize right = window->parentWidget()->size();
        if (event->type() == QEvent::Resize && window->size() != right) {
            window->resize(right);
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

RenderView::RenderView(SceneView& view, QWidget* parent)
    : QWidget(parent),
      _view(view),
      _viewer(std::make_unique<Viewer>(view, madeReady(this), [this] { emit frameRendered(); })),
      _keys(new KeyReporter(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_viewer->getWidget());

    QWidget* window = _viewer->getGLWidget();
    window->setFocusPolicy(Qt::StrongFocus);
    window->setAccessibleName(tr("Scene"));
    window->setAccessibleDescription(tr("The scene in three dimensions; turned, panned and zoomed by mouse"));
    window->installEventFilter(_keys);
    window->installEventFilter(new SizeKeeper(this));
    setFocusProxy(window);
    setAccessibleName(tr("Scene"));
    _viewer->show();
}

RenderView::~RenderView() = default;

void RenderView::viewAll()
{
    _viewer->viewAll();
}

Picture RenderView::picture(const QSize& size)
{
    return _pictures.render(_view, size.isEmpty() ? this->size() * devicePixelRatioF() : size);
}

} // namespace kthost
