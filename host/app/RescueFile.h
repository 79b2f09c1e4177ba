#pragma once

#include <QString>

#include <functional>

namespace kthost
{

/// Where a project goes that is saved because the program must end.
class RescueFile
{
public:
    /// Calls `write` with "NAME.rescued.ktproj" beside `shown`, NAME.ktproj or the like; where that throws
    /// HostError, with one in the user's folder for data, and then with one in a new folder among the
    /// temporary files. A name that is taken gets a number. Answers the file that was written; throws what
    /// the first call threw where none could be.
    static QString write(const QString& shown, const std::function<void(const QString&)>& write);
};

} // namespace kthost
