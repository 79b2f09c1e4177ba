#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kt::test
{

/// Stands before functions of the host that the module calls: writes each call down, lets a test look or
/// throw at that moment, then passes it on. Whatever program links HostCalls.cpp has it in the way for good,
/// so these are programs of their own.
class HostCalls
{
public:
    /// Forgets everything; each test starts with it.
    static void reset();

    /// Every call as a line, such as "addCB animationStart".
    static std::vector<std::string>& lines();

    /// The lines that begin with one of these words, in order.
    static std::vector<std::string> linesOf(const std::vector<std::string>& words);

    /// Told of each call before it is passed on; what it throws goes to the caller.
    static std::function<void(const std::string& line)>& onCall();

    /// onCall() that throws a std::runtime_error at this call.
    static void throwAt(const std::string& line);

    /// How much later each reading of the clock finds it than the one before; 0 lets it stand still.
    static double& clockStep();
};

} // namespace kt::test
