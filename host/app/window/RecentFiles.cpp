#include "host/app/window/RecentFiles.h"

#include "host/files/WholeSettings.h"

#include <QFileInfo>
#include <QSettings>

namespace kthost
{
namespace
{

const char* const key = "recentFiles";

} // namespace

QStringList RecentFiles::list()
{
    QStringList files;
    for (const QString& file : QSettings().value(key).toStringList()) {
        if (QFileInfo::exists(file))
            files << file;
    }
    return files;
}

void RecentFiles::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList files = list();
    files.removeAll(path);
    files.prepend(path);
    WholeSettings::set(key, QStringList(files.mid(0, most)));
}

void RecentFiles::clear()
{
    WholeSettings::set(key, {});
}

} // namespace kthost
