#include "host/view/PictureFile.h"

#include "host/files/WholeFile.h"

#include <QBuffer>
#include <QImage>

namespace kthost
{

QString writePicture(const QImage& image, const QString& file)
{
    if (image.isNull())
        return QStringLiteral("the picture is empty");
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!image.save(&buffer, "PNG"))
        return QStringLiteral("the picture cannot be encoded as PNG");
    return WholeFile::write(file, bytes);
}

} // namespace kthost
