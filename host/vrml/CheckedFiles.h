#pragma once

#include "host/vrml/FoundFile.h"
#include "host/vrml/LocalUrl.h"
#include "host/vrml/ReadLimits.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace kthost
{

class SceneGuard;

/// The files of a reading as the guard's process has found them. It looks for the same ones in the same
/// order, before the host does; where one is another by then, or is gone, the host must not go on.
class CheckedFiles
{
public:
    /// Without a guard files are as they are. `tell` is told of each, by the guard's own process.
    CheckedFiles(SceneGuard* guard, const ReadLimits& limits, std::function<void(const FoundFile&)> tell);

    /// The file of the local system that a URL in a file of this folder means.
    LocalUrl resolve(const std::string& url, const std::string& folder);

    /// The bytes of a file, unpacked; null where there are none to be had, why is in `error`.
    std::optional<std::string> read(const std::string& path, const std::string& name, std::string& error);

    /// From now on files may be looked for that the guard's process did not need, and in another order. Those
    /// that it has not read are left out.
    void leaveOrder() { _isInOrder = false; }

    /// Whether the guard kept anything back.
    bool isStopped() const { return _isStopped; }

    /// What is not as the guard's process has found it, as the end of a line; empty while all is.
    const std::string& change() const { return _change; }

private:
    /// False where it is not what the guard's process found; `error` says so, unless it says something else.
    bool isAsChecked(const FoundFile& found, const std::string& name, std::string& error);

    /// Whether the guard lets this process hold so many bytes of a file.
    bool mayHold(std::size_t bytes);

    SceneGuard* _guard;
    const ReadLimits& _limits;
    std::function<void(const FoundFile&)> _tell;
    std::size_t _looks = 0; ///< For files, so far.
    bool _isInOrder = true;
    bool _isStopped = false;
    std::string _change;
};

} // namespace kthost
