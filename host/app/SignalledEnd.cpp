#include "host/app/SignalledEnd.h"

#include "host/app/LastWords.h"

#include <kt/ktFailures.h>

#include <cstdio>

namespace kthost
{
namespace
{

/// In milliseconds; who ends programs in earnest waits some ten seconds before they are killed.
constexpr int longestFarewell = 5000;

} // namespace

SignalledEnd::SignalledEnd() : _signals(longestFarewell)
{
    if (_signals.descriptor() < 0)
        return;
    _arrival = std::make_unique<QSocketNotifier>(_signals.descriptor(), QSocketNotifier::Read);
    QObject::connect(_arrival.get(), &QSocketNotifier::activated, [] { leave(); });
}

void SignalledEnd::leave()
{
    const std::string words = LastWords::rescued();
    if (!words.empty())
        std::fprintf(stderr, "kthost: %s: the program was told to end%s\n",
                     EndSignals::HandOver::signalName(), ktFailures::inOneLine(words).c_str());
    EndSignals::HandOver::end();
}

} // namespace kthost
