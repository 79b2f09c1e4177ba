#include "host/view/PictureRenderer.h"

#include "host/view/OffscreenContext.h"
#include "host/view/PictureTarget.h"
#include "host/view/SceneView.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/VRMLnodes/SoVRMLGroup.h>
#include <Inventor/VRMLnodes/SoVRMLShape.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/misc/SoContextHandler.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QColor>

#include <cstring>

namespace kthost
{

namespace
{

/// While it lives, the renderer's words about the kind of context are dropped: it looks for a GLX one, which
/// an off-screen context is not, and draws all the same.
class ContextWordsDropped
{
public:
    ContextWordsDropped()
        : _handler(SoDebugError::getHandlerCallback()), _data(SoDebugError::getHandlerData())
    {
        SoDebugError::setHandlerCallback(passOn, this);
    }
    ~ContextWordsDropped() { SoDebugError::setHandlerCallback(_handler, _data); }

    ContextWordsDropped(const ContextWordsDropped&) = delete;
    ContextWordsDropped& operator=(const ContextWordsDropped&) = delete;

private:
    static void passOn(const SoError* error, void* self)
    {
        const char* words = error->getDebugString().getString();
        if (std::strstr(words, "glxglue_") || std::strstr(words, "cc_glglue_instance"))
            return;
        const auto* that = static_cast<const ContextWordsDropped*>(self);
        that->_handler(error, that->_data);
    }

    SoErrorCB* _handler;
    void* _data;
};

/// While it lives, the renderer makes and uses no display lists. When it does so depends on what was drawn
/// before, and their edges lie a rounding error apart from those of the nodes themselves: pictures of one
/// state would differ.
class DisplayListsOff
{
public:
    DisplayListsOff()
        : _separators(SoSeparator::getNumRenderCaches()),
          _groups(SoVRMLGroup::getNumRenderCaches()),
          _shapes(SoVRMLShape::getNumRenderCaches())
    {
        set(0, 0, 0);
    }
    ~DisplayListsOff() { set(_separators, _groups, _shapes); }

    DisplayListsOff(const DisplayListsOff&) = delete;
    DisplayListsOff& operator=(const DisplayListsOff&) = delete;

private:
    static void set(int separators, int groups, int shapes)
    {
        SoSeparator::setNumRenderCaches(separators);
        SoVRMLGroup::setNumRenderCaches(groups);
        SoVRMLShape::setNumRenderCaches(shapes);
    }

    int _separators;
    int _groups;
    int _shapes;
};

} // namespace

struct PictureRenderer::Machinery
{
    explicit Machinery(std::unique_ptr<OffscreenContext> offscreen)
        : context(std::move(offscreen)),
          action(SbViewportRegion(1, 1)),
          cacheContext(SoGLCacheContextElement::getUniqueCacheContext())
    {
        action.setCacheContext(cacheContext);
        action.setTransparencyType(SoGLRenderAction::SORTED_OBJECT_BLEND);
    }

    ~Machinery()
    {
        const OffscreenContext::Current current(*context);
        SoContextHandler::destructingContext(cacheContext);
        target.reset();
    }

    QString prepareTarget(const QSize& size)
    {
        if (target && target->size() == size)
            return {};
        QString error;
        target.reset();
        target = std::make_unique<PictureTarget>(size, error);
        if (!error.isEmpty())
            target.reset();
        return error;
    }

    std::unique_ptr<OffscreenContext> context;
    std::unique_ptr<PictureTarget> target;
    SoGLRenderAction action;
    unsigned cacheContext;
};

PictureRenderer::PictureRenderer() = default;
PictureRenderer::~PictureRenderer() = default;

Picture PictureRenderer::render(SceneView& view, const QSize& size)
{
    Picture picture;
    if (size.isEmpty()) {
        picture.error = QStringLiteral("a picture of %1x%2 is empty").arg(size.width()).arg(size.height());
        return picture;
    }
    if (!_machinery) {
        std::unique_ptr<OffscreenContext> context = OffscreenContext::create(picture.error);
        if (!context)
            return picture;
        _machinery = std::make_unique<Machinery>(std::move(context));
    }
    const OffscreenContext::Current current(*_machinery->context);
    if (!current) {
        picture.error = QStringLiteral("the OpenGL driver refuses its off-screen context");
        return picture;
    }
    picture.error = _machinery->prepareTarget(size);
    if (!picture.error.isEmpty())
        return picture;

    const ContextWordsDropped quiet;
    const DisplayListsOff direct;
    view.fitClipping(size);
    _machinery->target->begin(SceneView::clearColor());
    _machinery->action.setViewportRegion(
        SbViewportRegion(static_cast<short>(size.width()), static_cast<short>(size.height())));
    _machinery->action.apply(view.root());
    picture.image = _machinery->target->read();
    if (picture.image.isNull())
        picture.error =
            QStringLiteral("no memory for a picture of %1x%2").arg(size.width()).arg(size.height());
    return picture;
}

} // namespace kthost
