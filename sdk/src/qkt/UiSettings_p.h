#pragma once

#include <QCoreApplication>
#include <QSettings>

/// Where the widgets remember what the user arranged: the application's settings.
namespace UiSettings
{

/// Without an organization the settings would be a file shared with every other nameless program.
inline bool areKept()
{
    return !QCoreApplication::organizationName().isEmpty();
}

inline QVariant value(const QString& key)
{
    return areKept() ? QSettings().value(key) : QVariant();
}

/// False where they are not kept or cannot be written.
inline bool setValue(const QString& key, const QVariant& value)
{
    if (!areKept())
        return false;
    QSettings settings;
    settings.setValue(key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace UiSettings
