#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace kthost
{

/// Where a picture is drawn: buffers of one size with four samples a pixel, so that edges are smooth. Made,
/// used and destroyed while one and the same OpenGL context is current.
class PictureTarget
{
public:
    static constexpr int Samples = 4;
    static constexpr int MostPixels = 7680 * 4320; ///< Takes about a gigabyte.

    /// `error` is left alone where all went well; else it says in one line why there is no target of this
    /// size.
    PictureTarget(const QSize& size, QString& error);
    ~PictureTarget();

    PictureTarget(const PictureTarget&) = delete;
    PictureTarget& operator=(const PictureTarget&) = delete;

    QSize size() const { return _size; }

    /// Makes the next drawing go here, on an empty picture of the given colour.
    void begin(const QColor& background);

    /// What was drawn since begin(); a null image where memory is short.
    QImage read();

private:
    void make(QString& error);

    QSize _size;
    unsigned _samplesFrame = 0;
    unsigned _pictureFrame = 0;
    unsigned _sampleColor = 0;
    unsigned _sampleDepth = 0;
    unsigned _pictureColor = 0;
};

} // namespace kthost
