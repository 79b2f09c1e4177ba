#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>

namespace kthost
{

class SceneView;

/// A picture, or the reason why there is none.
struct Picture
{
    QImage image;  ///< Opaque; null where the picture could not be made.
    QString error; ///< One line; empty where there is a picture.
};

/// Draws pictures of a view, off-screen: neither a window nor a display is needed. The same view gives the
/// same picture to the bit, on the same driver. GUI thread; must be destroyed before the program's end is
/// left to static objects.
class PictureRenderer
{
public:
    PictureRenderer();
    ~PictureRenderer();

    PictureRenderer(const PictureRenderer&) = delete;
    PictureRenderer& operator=(const PictureRenderer&) = delete;

    /// `size` in pixels; an empty one gives an error. The view's clipping planes are fitted to the scene, its
    /// camera is left alone else. What it takes to draw is kept for the next picture.
    Picture render(SceneView& view, const QSize& size);

private:
    struct Machinery;
    std::unique_ptr<Machinery> _machinery;
};

} // namespace kthost
