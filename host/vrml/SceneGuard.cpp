#include "host/vrml/SceneGuard.h"

#include "host/vrml/CheckChannel.h"
#include "host/vrml/CheckProgress.h"
#include "host/vrml/ImageGuard.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sstream>
#include <utility>

namespace kthost
{
namespace
{

/// How far the check is to be ahead before a host that had to wait goes on: each wait costs more than reading
/// a few lines.
constexpr std::uint64_t headStart = 2048;

std::string readerBeside(const std::string& program)
{
    return std::filesystem::path(program).replace_filename("kthost-image-reader").string();
}

} // namespace

SceneGuard::SceneGuard(const std::string& program, const ReadLimits& limits)
    : _limits(limits),
      _program(program, limits),
      _images(std::make_shared<ImageGuard>(readerBeside(program), limits))
{
    start();
}

SceneGuard::~SceneGuard() = default;

void SceneGuard::start()
{
    _program.stop();
    // Fresh memory, since a program that was killed may still have a process that writes to the old one.
    _progress = std::make_unique<CheckProgress>();
    _problem = _progress->failed() ? _program.notRunning(errno) : std::string();
    if (_problem.empty()) {
        _program.start(_progress->descriptor());
        _problem = _program.problem();
    }
}

void SceneGuard::check(const std::string& path)
{
    const auto handOver = [&] {
        if (!_progress->failed())
            _progress->reset();
        return _program.send(std::to_string(++_number) + " " + path);
    };
    if (_isChecking || !handOver()) {
        // It ended since the last file, by whatever hand, or nobody waited for its answer.
        start();
        _isChecking = handOver();
    } else {
        _isChecking = true;
    }
    _passed = 0;
    _found.clear();
    _verdict.clear();
    if (!_isChecking)
        _verdict = _problem.empty() ? _program.notRunning(EPIPE) : _problem;
}

void SceneGuard::receive()
{
    const std::string packet = _program.receive(_limits.clockSeconds() + CheckChannel::graceSeconds);
    if (packet.empty()) {
        _isChecking = false;
        start();
        _verdict = CheckChannel::noAnswer;
        return;
    }
    take(packet);
}

void SceneGuard::take(const std::string& packet)
{
    std::istringstream words(packet.substr(1));
    std::uint64_t number = 0;
    if (packet[0] == CheckChannel::news || !(words >> number) || number != _number)
        return; // or of a file before
    if (packet[0] == CheckChannel::verdict) {
        _isChecking = false;
        _verdict = packet.substr(packet.find(' ') + 1);
        return;
    }
    FoundFile file;
    if (words >> file.path >> file.bytes)
        _found.push_back(file);
}

SceneGuard::Found SceneGuard::found(std::size_t look, const FoundFile& file)
{
    while (_isChecking && _found.size() <= look)
        receive();
    if (_found.size() <= look || _found[look].path != file.path)
        return Found::Nothing;
    if (_found[look].bytes == file.bytes)
        return Found::Same;
    return _found[look].bytes == 0 ? Found::Nothing : Found::Other;
}

SceneGuard::Found SceneGuard::found(const FoundFile& file)
{
    Found best = Found::Nothing;
    for (std::size_t look = 0; best != Found::Same; ++look) {
        const Found there = found(look, file);
        if (_found.size() <= look)
            break;
        best = there == Found::Nothing ? best : there;
    }
    return best;
}

bool SceneGuard::letsPass(std::uint64_t place)
{
    const std::uint64_t awaited = std::min(place + headStart, end - 1);
    while (_isChecking && _passed <= place) {
        _progress->await(awaited);
        _passed = _progress->told();
        if (_passed <= place)
            receive();
    }
    return _isChecking || _verdict.empty();
}

const std::string& SceneGuard::verdict()
{
    while (_isChecking)
        receive();
    return _verdict;
}

} // namespace kthost
