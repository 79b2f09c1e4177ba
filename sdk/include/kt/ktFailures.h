#pragma once

#include <kt/Export.h>

#include <string>

/// What modules and callbacks throw into the host's calls: told in one line, and kept from everyone else.
/// GUI thread.
class KT_EXPORT ktFailures
{
public:
    /// Logs "WHERE: WHAT" as an error, in one line. What fails again and again, such as in each frame, is
    /// told again only with other words, and a hundred times at most, until the log has another sink.
    static void tell(const std::string& where, const std::string& what);

    /// Calls `call`, and answers whether it came back; what it threw is told. `where()` gives the words for
    /// the place, and is called in that case only: what was called may be gone by then.
    template <class Where, class Call>
    static bool survived(Where&& where, Call&& call)
    {
        std::string what;
        if (!threw(call, what))
            return true;
        tell(where(), what);
        return false;
    }

    /// Calls `call`, and answers whether it threw; `what` then gets the words of it.
    template <class Call>
    static bool threw(Call&& call, std::string& what)
    {
        try {
            call();
            return false;
        } catch (...) {
            what = present();
            return true;
        }
    }

    /// The words of the exception that is being handled, in one line: those of a std::exception, for any
    /// other "an unknown exception". Empty where there is none. Any thread.
    static std::string present();

    /// The text with blanks for control characters, as for what has a line of its own. Any thread.
    static std::string inOneLine(std::string text);

    /// For the log: its new sink has been told of nothing yet.
    static void forget();
};
