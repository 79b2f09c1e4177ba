#pragma once

#include <exception>
#include <string>

namespace kthost
{

/// What plug-ins throw into the host's calls. GUI thread.
class Failures
{
public:
    /// Logs "WHERE: WHAT" in one line. What fails again and again, such as in each frame, is told again only
    /// with other words, and a hundred times at most.
    static void tell(const std::string& where, const std::string& what);

    /// Calls `call`, and answers whether it came back; what it threw is told. `where()` gives the words for
    /// the place.
    template <class Where, class Call>
    static bool survived(Where&& where, Call&& call)
    {
        try {
            call();
            return true;
        } catch (const std::exception& error) {
            tell(where(), error.what());
        } catch (...) {
            tell(where(), "an unknown exception");
        }
        return false;
    }
};

} // namespace kthost
