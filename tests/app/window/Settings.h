#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

namespace kt::test
{

/// The user's settings for as long as it lives: none at first, and gone at the end.
class Settings
{
public:
    Settings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("kthost-tests"));
        QCoreApplication::setApplicationName(QStringLiteral("kthost"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        QSettings().clear();
    }
    ~Settings() { QCoreApplication::setOrganizationName(QString()); }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    QTemporaryDir folder;
};

} // namespace kt::test
