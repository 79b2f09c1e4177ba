#include "host/view/PictureTarget.h"

#include <QColor>

#include <algorithm>

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

namespace kthost
{

namespace
{

unsigned makeBuffer(GLenum format, int samples, const QSize& size, GLenum attachment)
{
    GLuint buffer = 0;
    glGenRenderbuffers(1, &buffer);
    glBindRenderbuffer(GL_RENDERBUFFER, buffer);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, size.width(), size.height());
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer);
    return buffer;
}

bool isComplete()
{
    return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

QSize largestSize()
{
    GLint viewport[2] = {0, 0};
    GLint buffer = 0;
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &buffer);
    return QSize(std::min(viewport[0], buffer), std::min(viewport[1], buffer));
}

QString asText(const QSize& size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

} // namespace

PictureTarget::PictureTarget(const QSize& size, QString& error) : _size(size)
{
    const QSize largest = largestSize();
    if (size.width() > largest.width() || size.height() > largest.height())
        error = QStringLiteral("a picture of %1 is too large, the OpenGL driver draws up to %2")
                    .arg(asText(size), asText(largest));
    else if (size.width() > MostPixels / size.height())
        error = QStringLiteral("a picture of %1 is too large, %2 million pixels are the most")
                    .arg(asText(size))
                    .arg(MostPixels / 1000000);
    else
        make(error);
}

void PictureTarget::make(QString& error)
{
    while (glGetError() != GL_NO_ERROR) {
        // errors of before are not ours
    }
    GLint mostSamples = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &mostSamples);
    const int samples = std::min(Samples, mostSamples);

    glGenFramebuffers(1, &_pictureFrame);
    glBindFramebuffer(GL_FRAMEBUFFER, _pictureFrame);
    _pictureColor = makeBuffer(GL_RGBA8, 0, _size, GL_COLOR_ATTACHMENT0);
    bool complete = isComplete();

    glGenFramebuffers(1, &_samplesFrame);
    glBindFramebuffer(GL_FRAMEBUFFER, _samplesFrame);
    _sampleColor = makeBuffer(GL_RGBA8, samples, _size, GL_COLOR_ATTACHMENT0);
    _sampleDepth = makeBuffer(GL_DEPTH24_STENCIL8, samples, _size, GL_DEPTH_STENCIL_ATTACHMENT);
    complete = isComplete() && complete;

    if (glGetError() == GL_OUT_OF_MEMORY)
        error = QStringLiteral("no memory for a picture of %1").arg(asText(_size));
    else if (!complete)
        error = QStringLiteral("the OpenGL driver cannot draw a picture of %1").arg(asText(_size));
}

PictureTarget::~PictureTarget()
{
    const GLuint frames[] = {_samplesFrame, _pictureFrame};
    const GLuint buffers[] = {_sampleColor, _sampleDepth, _pictureColor};
    glDeleteFramebuffers(2, frames);
    glDeleteRenderbuffers(3, buffers);
}

void PictureTarget::begin(const QColor& background)
{
    glBindFramebuffer(GL_FRAMEBUFFER, _samplesFrame);
    glViewport(0, 0, _size.width(), _size.height());
    glEnable(GL_DEPTH_TEST);
    glClearColor(static_cast<float>(background.redF()), static_cast<float>(background.greenF()),
                 static_cast<float>(background.blueF()), 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

QImage PictureTarget::read()
{
    QImage image(_size, QImage::Format_RGBX8888);
    if (image.isNull())
        return image;
    glBindFramebuffer(GL_READ_FRAMEBUFFER, _samplesFrame);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _pictureFrame);
    glBlitFramebuffer(0, 0, _size.width(), _size.height(), 0, 0, _size.width(), _size.height(),
                      GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, _pictureFrame);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, _size.width(), _size.height(), GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
    // OpenGL's first row is the lowest one. Translucent things leave their mark on the alpha bytes: a picture
    // has none.
    return std::move(image).mirrored().convertToFormat(QImage::Format_RGB32);
}

} // namespace kthost
