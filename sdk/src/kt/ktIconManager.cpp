#include <kt/ktIconManager.h>

#include <QFile>
#include <QIcon>

QIcon ktIconManager::getIcon(const std::string& name, const std::string& variant)
{
    QString file = QStringLiteral(":/kt/icons/") + QString::fromUtf8(name.c_str());
    if (!variant.empty())
        file += QLatin1Char('-') + QString::fromUtf8(variant.c_str());
    file += QStringLiteral(".svg");
    return QFile::exists(file) ? QIcon(file) : QIcon();
}
