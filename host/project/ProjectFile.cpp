#include "host/project/ProjectFile.h"

#include "host/files/WholeFile.h"
#include "host/project/ProjectError.h"
#include "host/project/ProjectFormat.h"
#include "host/vrml/FileBytes.h"

#include <QFile>
#include <QFileInfo>

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
    const QString why = WholeFile::write(file, json);
    if (!why.isEmpty())
        fail(file, why);
}

} // namespace kthost
