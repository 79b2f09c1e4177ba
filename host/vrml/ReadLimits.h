#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kthost
{

/// How far a scene file may go before it is refused. docs/scenes.md tells users of them.
struct ReadLimits
{
    std::size_t brackets = 1000; ///< Open inside each other in one file.

    /// Of a keyword, a number or a field's name; node names may be of any length.
    std::size_t wordBytes = 4096;
    std::size_t sceneDepth = 3000;      ///< Nodes inside each other in the whole scene.
    std::size_t drawnNodes = 10000000;  ///< In a picture of the scene, each as often as it is used.
    double seconds = 20.0;              ///< Of a processor that the check of a file may take.
    double waitSeconds = 100.0;         ///< Of the clock, besides: it may have to wait for a processor.
    std::size_t megabytes = 2048;       ///< The check of a file may take.
    std::size_t fileMegabytes = 1024;   ///< Of one file, as it is and unpacked.
    std::size_t files = 64;             ///< Open inside each other.
    std::size_t imagePixels = 64000000; ///< Of a texture; a larger one is left out.

    /// Seconds of the clock that the check of a file may take.
    double clockSeconds() const { return seconds + waitSeconds; }

    /// The most that any of them takes from a text; more is taken for so much.
    static constexpr double most = 1e9;

    /// These, but for those that the environment gives otherwise: KTHOST_READ_BRACKETS,
    /// KTHOST_READ_WORD_BYTES, KTHOST_READ_DEPTH, KTHOST_READ_DRAWN, KTHOST_READ_SECONDS,
    /// KTHOST_READ_WAIT_SECONDS, KTHOST_READ_MEGABYTES, KTHOST_READ_FILE_MEGABYTES, KTHOST_READ_FILES,
    /// KTHOST_READ_PIXELS. Texts that are no number above 0 are ignored.
    static ReadLimits fromEnvironment();

    /// For the command line of another process.
    std::vector<std::string> words() const;

    /// What words() was called for; null for other words.
    static std::optional<ReadLimits> fromWords(const std::vector<std::string>& words);
};

} // namespace kthost
