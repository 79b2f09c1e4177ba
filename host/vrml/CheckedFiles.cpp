#include "host/vrml/CheckedFiles.h"

#include "host/vrml/FileBytes.h"
#include "host/vrml/SceneGuard.h"

#include <utility>

namespace kthost
{

CheckedFiles::CheckedFiles(SceneGuard* guard, const ReadLimits& limits,
                           std::function<void(const FoundFile&)> tell)
    : _guard(guard), _limits(limits), _tell(std::move(tell))
{
}

LocalUrl CheckedFiles::resolve(const std::string& url, const std::string& folder)
{
    LocalUrl file = LocalUrl::resolve(url, folder);
    const std::optional<std::string> found =
        file.path.empty() ? std::nullopt : std::optional<std::string>(file.path);
    std::string problem;
    if (!isAsChecked(FoundFile::of(folder + '\n' + url, found), url, problem))
        file = {{}, {}, problem};
    return file;
}

std::optional<std::string> CheckedFiles::read(const std::string& path, const std::string& name,
                                              std::string& error)
{
    const FileRoom room{_limits.fileMegabytes, [this](std::size_t bytes) { return mayHold(bytes); }};
    std::optional<std::string> bytes = FileBytes::read(path, error, room);
    if (!isAsChecked(FoundFile::of(path, bytes), name, error))
        return std::nullopt;
    return bytes ? FileBytes::unpack(*std::move(bytes), error, room) : std::nullopt;
}

bool CheckedFiles::isAsChecked(const FoundFile& found, const std::string& name, std::string& error)
{
    if (_tell)
        _tell(found);
    if (!_guard)
        return true;
    const bool isFirst = _looks == 0;
    const SceneGuard::Found checked = _isInOrder ? _guard->found(_looks++, found) : _guard->found(found);
    if (checked == SceneGuard::Found::Same)
        return true;
    _isStopped = true;
    if (error.empty())
        error = checked == SceneGuard::Found::Other ? "it changed while it was read"
                                                    : "its check found nothing there";
    if (_isInOrder)
        _change = isFirst ? error : name + ": " + error;
    return false;
}

bool CheckedFiles::mayHold(std::size_t bytes)
{
    // What is made of a file's text takes several times its size.
    constexpr std::size_t part = 16;
    if (!_guard || bytes <= (_limits.megabytes << 20U) / part || _guard->verdict().empty())
        return true;
    _isStopped = true;
    return false;
}

} // namespace kthost
