#pragma once

#include <string>
#include <vector>

namespace kthost::bench
{

/// A scene file of some kind.
struct GuardScene
{
    std::string kind;
    std::string path;
};

/// Writes scene files of more than 100 kB into the folder, each large by something else.
std::vector<GuardScene> writeGuardScenes(const std::string& folder);

/// Those of the real scenes that are larger than 100 kB and can be read; none where there is no such folder.
std::vector<GuardScene> realGuardScenes(const std::string& folder);

} // namespace kthost::bench
