#pragma once

#include "host/vrml/ReadLimits.h"

#include <optional>
#include <string>

namespace kthost
{

/// What connects CheckProgram and its programs, kthost-scene-check and kthost-image-reader. Their words are
/// those of ReadLimits. For scenes each packet in is a number, a blank and a path; for images it is a path,
/// and has one answer. Each packet out begins with one of the characters here.
struct CheckChannel
{
    /// Of a scene: its number follows, a blank, and why it must not be read; nothing where it may. Of an
    /// image: why it is not read follows; nothing where it is none.
    static constexpr char verdict = '.';
    static constexpr char news = '+'; ///< The check is where the guard awaits it.

    /// The scene's number follows, a blank, and what was found for a file that it needs: FoundFile's two
    /// numbers with a blank between.
    static constexpr char found = '#';

    /// The words of ImageSize follow: so large is the image whose pixels are in the memory now.
    static constexpr char image = '*';

    /// The programs' descriptors: a socket of sequenced packets; for scenes the memory of CheckProgress, for
    /// images that of PixelMemory.
    static constexpr int socket = 0;
    static constexpr int memory = 3;

    /// What a program may need beyond its own limit to tell that it was reached.
    static constexpr double graceSeconds = 5.0;

    /// The verdict where it does not answer even so, or is gone.
    static constexpr const char* noAnswer = "the reader does not come back from it";

    /// False where nobody is there to be told.
    static bool send(int socket, const std::string& packet);

    /// Waits for a packet; empty where nobody is there any more.
    static std::string receive(int socket);

    /// At the beginning of a program: what its words say, null for wrong ones. From then on it ends with the
    /// host, and interrupts at the terminal are for the host alone.
    static std::optional<ReadLimits> begin(int argc, char** argv);
};

} // namespace kthost
