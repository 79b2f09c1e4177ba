#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

namespace kt::test
{

/// While it lives, the application has a name and settings of its own, empty at first.
class KeptSettings
{
public:
    KeptSettings()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("qktTest"));
    }

    ~KeptSettings() { QCoreApplication::setOrganizationName(QString()); }

private:
    QTemporaryDir _folder;
};

} // namespace kt::test
