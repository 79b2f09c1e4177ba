#pragma once

#include "host/vrml/ReadLimits.h"

#include <functional>
#include <string>

namespace kthost
{

/// The reading of files that the reader may not survive, in a process of its own, with the same limits for
/// each of them.
class LimitedRun
{
public:
    /// Limits this process and calls the function. That it comes back means that the reader survived; the
    /// limits on time are off again then.
    static void run(const ReadLimits& limits, const std::function<void()>& read);

    /// Why the file must not be read, in a few words, where the process ended with this status instead.
    static std::string reasonOf(int status, const ReadLimits& limits);
};

} // namespace kthost
