#include "host/files/EndSignals.h"

#include <unistd.h>

#include <atomic>
#include <csignal>

namespace kthost
{
namespace
{

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// In place of a number of holds: the program ends, and no more hold is given.
constexpr int ending = -1;

std::atomic<int> holds{0};
std::atomic<int> waiting{0}; ///< The signal that came last; 0 for none.

static_assert(std::atomic<int>::is_always_lock_free, "used in signal handlers");

void endBy(int signal)
{
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(signal, &byDefault, nullptr);
    kill(getpid(), signal);
}

/// Ends the program unless something holds it: that will do it then.
void endIfFree()
{
    int none = 0;
    if (waiting != 0 && holds.compare_exchange_strong(none, ending))
        endBy(waiting);
}

/// The signal is noted first: whoever lets go meanwhile, on another thread, sees it.
void onEndSignal(int signal)
{
    waiting = signal;
    endIfFree();
}

} // namespace

void EndSignals::watch()
{
    struct sigaction action = {};
    action.sa_handler = onEndSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : endSignals) {
        struct sigaction present = {};
        sigaction(signal, nullptr, &present);
        if (present.sa_handler != SIG_IGN)
            sigaction(signal, &action, nullptr);
    }
}

EndSignals::Hold::Hold()
{
    int present = holds;
    while (present == ending || !holds.compare_exchange_weak(present, present + 1)) {
        if (present == ending) {
            pause(); // the end is under way on another thread
            present = holds;
        }
    }
}

EndSignals::Hold::~Hold()
{
    --holds;
    endIfFree();
}

} // namespace kthost
