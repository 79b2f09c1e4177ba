#pragma once

namespace kthost
{

/// What connects SceneGuard and its program, kthost-scene-check. Each packet in is a number, a blank and a
/// path, each packet out begins with one of these.
struct CheckChannel
{
    /// The file's number follows, a blank, and why it must not be read; nothing where it may.
    static constexpr char verdict = '.';
    static constexpr char news = '+'; ///< The check is where the guard awaits it.

    /// The file's number follows, a blank, and what was found for one that it needs: FoundFile's two numbers
    /// with a blank between.
    static constexpr char found = '#';

    /// The program's descriptors: a socket of sequenced packets, the memory of CheckProgress.
    static constexpr int socket = 0;
    static constexpr int progress = 3;
};

} // namespace kthost
