#pragma once

#include "host/app/HostError.h"

#include <string>

namespace kthost
{

/// Some exceptions cannot be caught: those that leave a static object of a library, a destructor or a thread.
/// The program then ends in one line, "kthost: WHAT: WHY", instead of a crash.
class LastWords
{
public:
    /// From now on.
    static void prepare();

    /// What the program ends with where nothing else is the matter; as soon as that is known.
    static void setStatus(int status);
    static int status();

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
