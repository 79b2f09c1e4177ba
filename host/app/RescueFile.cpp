#include "host/app/RescueFile.h"

#include "host/app/HostError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <optional>

namespace kthost
{
namespace
{

QString folderOf(const QString& shown)
{
    return QFileInfo(shown).absolutePath();
}

/// Empty where it cannot be made.
QString dataFolder(const QString&)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return !folder.isEmpty() && QDir().mkpath(folder) ? folder : QString();
}

/// One that nobody else can have prepared; empty where it cannot be made.
QString temporaryFolder(const QString&)
{
    const QString place = QDir::tempPath();
    if (place.isEmpty())
        return {}; // the one that the environment names is none
    QTemporaryDir folder(place + QStringLiteral("/kthost-XXXXXX"));
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() : QString();
}

/// Takes a name that is free by an empty file: another host may rescue something at the same time. Where none
/// can be made, the name that is free now.
QString takeFreeName(const QString& folder, const QString& name)
{
    const QString start = folder + QLatin1Char('/') + name;
    QString file = start + QLatin1String(".rescued.ktproj");
    for (int i = 2; !QFile(file).open(QIODevice::WriteOnly | QIODevice::NewOnly) && QFileInfo::exists(file);
         ++i)
        file = start + QStringLiteral(".rescued-%1.ktproj").arg(i);
    return file;
}

} // namespace

QString RescueFile::write(const QString& shown, const std::function<void(const QString&)>& write)
{
    const QString name = QFileInfo(shown).completeBaseName();
    std::optional<HostError> first;
    for (const auto& place : {folderOf, dataFolder, temporaryFolder}) {
        const QString folder = place(shown);
        if (folder.isEmpty())
            continue;
        const QString file = takeFreeName(folder, name);
        try {
            write(file);
            return file;
        } catch (const HostError& error) {
            QFile::remove(file);
            if (!first)
                first = error;
        }
    }
    throw HostError(*first); // there is always a folder to begin with
}

} // namespace kthost
