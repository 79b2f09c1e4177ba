#include "host/project/ScenePath.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace kthost
{
namespace
{

const QLatin1String up("../");

bool hasScheme(const QString& path)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:"));
    return scheme.match(path).hasMatch();
}

} // namespace

QString ScenePath::relative(const QString& projectFile, const QString& sceneFile)
{
    const QFileInfo project(projectFile);
    const QFileInfo scene(sceneFile);
    QString path = QDir(QDir::cleanPath(project.absolutePath()))
                       .relativeFilePath(QDir::cleanPath(scene.absoluteFilePath()));
    // From a folder behind a link, "../" leads to another place than the path says.
    if (isOutside(path))
        path = QDir(project.dir().canonicalPath())
                   .relativeFilePath(QDir(scene.dir().canonicalPath()).filePath(scene.fileName()));
    return hasScheme(path) ? QStringLiteral("./") + path : path;
}

QString ScenePath::absolute(const QString& projectFile, const QString& relative)
{
    const QDir folder = QFileInfo(projectFile).dir();
    const QString start = isOutside(relative) ? folder.canonicalPath() : folder.absolutePath();
    return QDir::cleanPath(start + QLatin1Char('/') + relative);
}

bool ScenePath::isOutside(const QString& relative)
{
    const QString clean = QDir::cleanPath(relative);
    return clean == QLatin1String("..") || clean.startsWith(up);
}

QString ScenePath::refusal(const QString& path, bool mayBeOutside)
{
    if (path.isEmpty())
        return QStringLiteral("is empty");
    if (path.contains(QChar(QChar::Null)) || !path.isValidUtf16())
        return QStringLiteral("is no path");
    if (QDir::isAbsolutePath(path))
        return QStringLiteral("is an absolute path");
    if (hasScheme(path))
        return QStringLiteral("is an address, not a path");
    if (isOutside(path) && !mayBeOutside)
        return QStringLiteral("leads out of the project's folder, and the project does not say that it may");
    return {};
}

} // namespace kthost
