#include "host/app/LastWords.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace kthost
{
namespace
{

const char* const noPlace = "an exception that nobody catches";

std::string place = noPlace;
int placeStatus = static_cast<int>(ExitStatus::Broken);
int finalStatus = 0;

std::string present()
{
    const std::exception_ptr exception = std::current_exception();
    try {
        if (exception)
            std::rethrow_exception(exception);
        return "the program was told to end";
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "an unknown exception";
    }
}

[[noreturn]] void sayAndEnd()
{
    const HostError error(static_cast<ExitStatus>(placeStatus), place, present());
    std::fprintf(stderr, "kthost: %s\n", error.what());
    std::fflush(stdout);
    std::_Exit(placeStatus); // what is at fault is still there: nothing of it is touched again
}

} // namespace

void LastWords::prepare()
{
    std::set_terminate(sayAndEnd);
}

void LastWords::setStatus(int status)
{
    finalStatus = status;
}

int LastWords::status()
{
    return finalStatus;
}

LastWords::While::While(std::string what, int status)
{
    place = std::move(what);
    placeStatus = status;
}

LastWords::While::~While()
{
    place = noPlace;
    placeStatus = static_cast<int>(ExitStatus::Broken);
}

} // namespace kthost
