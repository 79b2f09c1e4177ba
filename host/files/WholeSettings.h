#pragma once

#include <QString>
#include <QVariant>

namespace kthost
{

/// The user's settings in a file that is there whole: the toolkit's own formats leave one that is cut off
/// where the disk is full.
class WholeSettings
{
public:
    /// From now on QSettings() means the file "ORGANIZATION/APPLICATION.json" in the user's folder for
    /// settings. What does not fit leaves the older file, and the status QSettings::AccessError; a file that
    /// cannot be read counts as an empty one. Texts, lists of texts and truth values stand in it as JSON has
    /// them, byte arrays in base64, all else in base64 of how the toolkit streams it. Main thread.
    static void use();

    /// Sets a value, or removes it where that is invalid, and writes it at once; signals wait, see
    /// EndSignals.
    static void set(const QString& key, const QVariant& value);
};

} // namespace kthost
