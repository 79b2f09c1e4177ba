#pragma once

#include <QString>

class QImage;

namespace kthost
{

/// Writes `image` as PNG: to a new file that is renamed into place, so that a file of before is either kept
/// or replaced as a whole. Gives an empty text, or in one line why it could not; the folder must be there.
QString writePicture(const QImage& image, const QString& file);

} // namespace kthost
