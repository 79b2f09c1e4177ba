#pragma once

#include "host/vrml/CheckProgram.h"
#include "host/vrml/FoundFile.h"
#include "host/vrml/ReadLimits.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kthost
{

class CheckProgress;
class ImageGuard;

/// Lets a process of its own read a scene file before the host does, since there are files that the reader
/// does not survive. The process has limits on time, memory and stack, and reads the file with all that it
/// refers to, but without its long lists of numbers. It is started once and then serves file after file.
/// The host may follow it through a file at a distance: what it read and survived, the host can read too.
///
/// GUI thread. A guard whose program cannot be run says so in its verdict.
class SceneGuard
{
public:
    /// Starts the program, `kthost-scene-check`, and the one beside it for images in the background.
    SceneGuard(const std::string& program, const ReadLimits& limits);

    /// Ends the programs.
    ~SceneGuard();
    SceneGuard(const SceneGuard&) = delete;
    SceneGuard& operator=(const SceneGuard&) = delete;

    /// The place behind all files.
    static constexpr std::uint64_t end = std::uint64_t{1} << 62U;

    /// Hands a file over. One at a time: a check that is under way ends without a verdict.
    void check(const std::string& path);

    /// What the check found where it looked for a file.
    enum class Found { Same, Other, Nothing };

    /// Waits until the check has looked so often for a file, from 0, or is over. `Nothing` where it did not
    /// look so often, or for another file, or there was none.
    Found found(std::size_t look, const FoundFile& file);

    /// Waits until the check has found the same at any time, or is over. `Nothing` where it never
    /// found the file.
    Found found(const FoundFile& file);

    /// Waits until the check is beyond this place, counted as ReadingSession does, or over. False where the
    /// file must not be read on; why is the verdict. Beyond the place before `end` the file is read, and only
    /// its scene's end is still to be checked.
    bool letsPass(std::uint64_t place);

    /// Waits for the end of the check. Empty where the reader survived, whatever it had to say about the
    /// file; otherwise why the file must not be read, in a few words.
    const std::string& verdict();

    /// Of the check; each has its own.
    std::uint64_t number() const { return _number; }

    const ReadLimits& limits() const { return _limits; }

    /// Reads the images of scenes, with the same limits.
    const std::shared_ptr<ImageGuard>& images() const { return _images; }

private:
    void start();

    /// Waits for the program to say something.
    void receive();
    void take(const std::string& packet);

    ReadLimits _limits;
    CheckProgram _program;
    std::shared_ptr<ImageGuard> _images;
    std::uint64_t _number = 0; ///< Of the last file.
    std::uint64_t _passed = 0; ///< Of this file, when it was looked at last.
    bool _isChecking = false;
    std::string _verdict;          ///< On the last file.
    std::string _problem;          ///< Why the program does not run.
    std::vector<FoundFile> _found; ///< By this check, in order.
    std::unique_ptr<CheckProgress> _progress;
};

} // namespace kthost
