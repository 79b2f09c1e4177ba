#pragma once

namespace kthost
{

/// The one set-up of the reader's and renderer's library for this process.
class CoinLibrary
{
public:
    /// Starts the library where that was not done yet; called by whoever reads scenes. Besides starting it:
    /// Inline files and textures come only through our own callbacks, textures at once with the file that
    /// names them, and the library's own clock is stopped, since simulation time is the host's. What it says
    /// while nobody takes its words, see ReaderMessages, goes to the log, each text once. GUI thread.
    static void init();
};

} // namespace kthost
