#pragma once

namespace kthost
{

/// SIGTERM, SIGINT and SIGHUP end the program at once, and in the way that shells know: by the signal, or as
/// the first process of a container, which no signal of its own ends, with 128 more than its number. But what
/// is being written then is written first, so that no half of it and no file of another name is left.
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

    /// As long as one lives, the first signal does not end the program but makes descriptor() readable, for
    /// someone to put things in order and then call end(). Where that takes longer than it may, the signal
    /// ends the program all the same; so it does where this goes. Further signals change nothing. One at a
    /// time, of the main thread.
    class HandOver
    {
    public:
        explicit HandOver(int milliseconds);
        ~HandOver();
        HandOver(const HandOver&) = delete;
        HandOver& operator=(const HandOver&) = delete;

        /// -1 where the system has none to give; signals then end the program as they do without this.
        int descriptor() const { return _descriptor; }

        /// The name of the signal that came, such as "SIGTERM".
        static const char* signalName();

        /// Ends the program by the signal that came, once nothing holds it.
        [[noreturn]] static void end();

    private:
        int _descriptor;
    };
};

} // namespace kthost
