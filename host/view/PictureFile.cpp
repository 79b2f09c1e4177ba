#include "host/view/PictureFile.h"

#include <QImage>
#include <QSaveFile>

namespace kthost
{

QString writePicture(const QImage& image, const QString& file)
{
    if (image.isNull())
        return QStringLiteral("the picture is empty");
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly))
        return output.errorString();
    if (!image.save(&output, "PNG"))
        return output.error() == QFileDevice::NoError ? QStringLiteral("the picture cannot be encoded as PNG")
                                                      : output.errorString();
    return output.commit() ? QString() : output.errorString();
}

} // namespace kthost
