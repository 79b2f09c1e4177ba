#include "host/view/OffscreenContext.h"

#include <QOpenGLContext>

#define EGL_EGLEXT_PROTOTYPES
#include <EGL/egl.h>
#include <EGL/eglext.h>

namespace kthost
{

namespace
{

EGLConfig openGlConfig(EGLDisplay display)
{
    const EGLint wanted[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_SURFACE_TYPE, EGL_PBUFFER_BIT,
                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglChooseConfig(display, wanted, &config, 1, &count) || count == 0)
        return nullptr;
    return config;
}

QString driverError(const char* what)
{
    return QStringLiteral("%1 (EGL error 0x%2)").arg(QLatin1String(what)).arg(eglGetError(), 0, 16);
}

} // namespace

std::unique_ptr<OffscreenContext> OffscreenContext::create(QString& error)
{
    const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (!display || !eglInitialize(display, nullptr, nullptr)) {
        error = driverError("no OpenGL driver that renders off-screen");
        return nullptr;
    }
    const EGLConfig config = eglBindAPI(EGL_OPENGL_API) ? openGlConfig(display) : nullptr;
    const EGLContext context = config ? eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr) : nullptr;
    if (!context) {
        error = driverError("the OpenGL driver gives no off-screen context");
        eglTerminate(display);
        return nullptr;
    }
    return std::unique_ptr<OffscreenContext>(new OffscreenContext(display, context));
}

OffscreenContext::~OffscreenContext()
{
    eglDestroyContext(_display, _context);
    // The display belongs to the whole process: whoever else got it would lose it by eglTerminate().
}

struct OffscreenContext::Current::Previous
{
    QOpenGLContext* windowContext = nullptr;
    QSurface* windowSurface = nullptr;
};

OffscreenContext::Current::Current(const OffscreenContext& context)
    : _context(context), _previous(std::make_unique<Previous>())
{
    // A window's context may be of another kind (GLX), and a thread cannot hold one of each.
    if (QOpenGLContext* current = QOpenGLContext::currentContext()) {
        _previous->windowContext = current;
        _previous->windowSurface = current->surface();
        current->doneCurrent();
    }
    eglBindAPI(EGL_OPENGL_API);
    _made = eglMakeCurrent(_context._display, EGL_NO_SURFACE, EGL_NO_SURFACE, _context._context) == EGL_TRUE;
}

OffscreenContext::Current::~Current()
{
    if (_made)
        eglMakeCurrent(_context._display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    if (_previous->windowContext)
        _previous->windowContext->makeCurrent(_previous->windowSurface);
}

} // namespace kthost
