#pragma once

#include "host/app/HostError.h"

#include <functional>
#include <string>

namespace kthost
{

/// Some exceptions cannot be caught: those that leave a static object of a library, a destructor or a thread.
/// The program then ends in one line, "kthost: WHAT: WHY", instead of a crash. What is not saved is rescued
/// first, where there is something to rescue and the exception is one of the main thread.
class LastWords
{
public:
    /// From now on. Called by the main thread.
    static void prepare();

    /// Ends the program where it cannot go on, with the error's status and "kthost: WHAT: WHY". On the main
    /// thread what is not saved is rescued before the end of the line, unless that crashes or takes more than
    /// some seconds in its turn. Any thread.
    [[noreturn]] static void end(const HostError& error);

    /// What the program ends with where nothing else is the matter; as soon as that is known.
    static void setStatus(int status);
    static int status();

    /// Saves what is not saved, and says what became of it; empty where nothing is unsaved.
    using Rescue = std::function<std::string()>;

    /// Who rescues what is not saved when the program must end, for as long as it lives. One at a time.
    class Rescuer
    {
    public:
        explicit Rescuer(Rescue rescue);
        ~Rescuer();
        Rescuer(const Rescuer&) = delete;
        Rescuer& operator=(const Rescuer&) = delete;
    };

    /// Has it rescued now, and answers what became of it as the end of a line: "; " and what the rescuer
    /// says, or that it is lost and why; empty where nothing is unsaved. Main thread.
    static std::string rescued();

    /// Says for as long as it lives what the program is at, and with which status it would end there.
    class While
    {
    public:
        While(std::string what, int status);
        ~While();
        While(const While&) = delete;
        While& operator=(const While&) = delete;
    };
};

} // namespace kthost
