#pragma once

#include "host/files/EndSignals.h"

#include <QSocketNotifier>

#include <memory>

namespace kthost
{

/// For as long as it lives, a signal that ends the program (see EndSignals) does so out of the event loop,
/// once what is not saved is rescued, see LastWords; in one line that says where it is. Where the loop is
/// stuck, the program ends after some seconds without that. GUI thread; one at a time.
class SignalledEnd
{
public:
    SignalledEnd();

private:
    static void leave();

    EndSignals::HandOver _signals;
    std::unique_ptr<QSocketNotifier> _arrival; ///< None where the system has no descriptor to give.
};

} // namespace kthost
