#pragma once

#include <dlfcn.h>

#include <algorithm>
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

/// What an exception says, for a log that has a line for each: control characters become blanks.
inline std::string inOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return text;
}
