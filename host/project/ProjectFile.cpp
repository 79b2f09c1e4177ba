#include "host/project/ProjectFile.h"

#include "host/project/ProjectError.h"
#include "host/project/ProjectFormat.h"
#include "host/vrml/FileBytes.h"

#include <QDir>
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

[[noreturn]] void fail(const QString& file, const QString& why)
{
    throw ProjectError(file + QLatin1String(": ") + why);
}

void checkSize(const QString& file, qint64 size)
{
    if (size > ProjectFile::sizeLimit)
        fail(file, QStringLiteral("it is larger than the %1 MB that a project may have")
                       .arg(ProjectFile::sizeLimit / (1024 * 1024)));
}

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

bool ProjectFile::isProject(const QString& file)
{
    return file.endsWith(QLatin1String(".ktproj"), Qt::CaseInsensitive);
}

Project ProjectFile::read(const QString& file)
{
    checkSize(file, QFileInfo(file).size());
    std::string error;
    const std::optional<std::string> bytes = FileBytes::read(QFile::encodeName(file).toStdString(), error);
    if (!bytes)
        fail(file, QString::fromStdString(error));
    checkSize(file, static_cast<qint64>(bytes->size()));
    return ProjectFormat::fromJson(QByteArray::fromRawData(bytes->data(), static_cast<int>(bytes->size())),
                                   file);
}

void ProjectFile::write(const Project& project, const QString& file)
{
    if (!isProject(file))
        fail(file, QStringLiteral("the name of a project ends in .ktproj"));
    const QByteArray json = ProjectFormat::toJson(project);
    checkSize(file, json.size());
    const QFileInfo present(file);
    if (present.isDir())
        fail(file, QStringLiteral("it is a folder"));
    if (present.exists() && !present.isFile())
        fail(file, QStringLiteral("it is not a regular file"));

    QSaveFile next(file);
    // Unbuffered: a commit puts the new file into place whether or not its last buffer could be written.
    if (!next.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(next, json))
        fail(file, next.errorString());
    // Some disks tell only now that they are full, and a commit does not pass that on either.
    if (::fsync(next.handle()) != 0 && errno != EINVAL)
        fail(file, QString::fromLocal8Bit(std::strerror(errno)));
    if (!next.commit())
        fail(file, next.errorString());
    syncFolder(QFileInfo(present.exists() ? present.canonicalFilePath() : file).absolutePath());
}

} // namespace kthost
