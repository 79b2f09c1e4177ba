#pragma once

#include <dlfcn.h>

#include <string>

/// The file name, without its folder, of the library or program that a function is part of: whom to blame
/// where it fails. Empty for null and for what is no code.
template <class Function>
std::string libraryOf(Function* function)
{
    Dl_info info{};
    if (!function || dladdr(reinterpret_cast<const void*>(function), &info) == 0 || !info.dli_fname)
        return {};
    const std::string file = info.dli_fname;
    return file.substr(file.rfind('/') + 1);
}

/// The words for a callback that fails on an occasion.
inline std::string failureOf(const char* occasion, const std::string& library)
{
    return std::string(occasion) + ": a callback of " + library + " failed";
}
