#pragma once

namespace kthost
{

/// SIGTERM, SIGINT and SIGHUP end the program at once, and in the way that shells know: by the signal. But
/// what is being written then is written first, so that no half of it and no file of another name is left.
/// Any thread.
class EndSignals
{
public:
    /// From now on. A signal that is ignored stays so, as in a program that was started in the background.
    static void watch();

    /// As long as one lives, signals wait. They can be inside of each other.
    class Hold
    {
    public:
        Hold();
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
    };
};

} // namespace kthost
