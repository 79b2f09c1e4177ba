#pragma once

#include <cstddef>

namespace kthost
{

/// How far a scene file may go before it is refused. docs/scenes.md tells users of them.
struct ReadLimits
{
    std::size_t brackets = 1000; ///< Open inside each other in one file.
    std::size_t wordBytes =
        4096; ///< Of a keyword, a number or a field's name; node names may be of any length.
    std::size_t sceneDepth = 3000;     ///< Nodes inside each other in the whole scene.
    std::size_t drawnNodes = 10000000; ///< In a picture of the scene, each as often as it is used.
    double seconds = 20.0;             ///< The check of a file may take; see SceneGuard.
    std::size_t megabytes = 2048;      ///< The check of a file may take.

    /// These, but for those that the environment gives otherwise: KTHOST_READ_BRACKETS,
    /// KTHOST_READ_WORD_BYTES, KTHOST_READ_DEPTH, KTHOST_READ_DRAWN, KTHOST_READ_SECONDS,
    /// KTHOST_READ_MEGABYTES. Texts that are no number above 0 are ignored.
    static ReadLimits fromEnvironment();
};

} // namespace kthost
