#pragma once

#include <QString>
#include <QStringList>

namespace kthost
{

/// The files opened last, the newest first, kept with the user's settings between runs.
class RecentFiles
{
public:
    static constexpr int most = 10;

    /// Those that are still there.
    static QStringList list();

    /// Puts a file at the front.
    static void add(const QString& file);

    static void clear();
};

} // namespace kthost
