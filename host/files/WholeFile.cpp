#include "host/files/WholeFile.h"

#include "host/files/EndSignals.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kthost
{
namespace
{

/// So that the new name outlives a power cut, too. Not every file system can; the file is whole anyway.
void syncFolder(const QString& folder)
{
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

/// A disk that fills up takes a part first, and says why only when it is asked to take the rest.
bool writeAll(QIODevice& device, const QByteArray& bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = device.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

} // namespace

bool WholeFile::isOnDisk(int descriptor)
{
    return ::fsync(descriptor) == 0 || errno == EINVAL;
}

QString WholeFile::write(const QString& file, const QByteArray& bytes)
{
    const QFileInfo present(file);
    if (present.isDir())
        return QStringLiteral("it is a folder");
    if (present.exists() && !present.isFile())
        return QStringLiteral("it is not a regular file");

    const EndSignals::Hold untilItIsWhole;
    QSaveFile next(file);
    // Unbuffered: a commit puts the new file into place whether or not its last buffer could be written.
    if (!next.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(next, bytes))
        return next.errorString();
    if (!isOnDisk(next.handle())) // which a commit does not pass on either
        return QString::fromLocal8Bit(std::strerror(errno));
    if (!next.commit())
        return next.errorString();
    syncFolder(QFileInfo(present.exists() ? present.canonicalFilePath() : file).absolutePath());
    return {};
}

} // namespace kthost
