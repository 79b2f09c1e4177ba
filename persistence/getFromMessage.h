#pragma once

#include <kt/ktMessage.h>

#include <cstdio>
#include <string>
#include <typeinfo>

/// Reads the attribute `key` into `out` and answers true, if it is held as exactly the type T.
/// A missing or empty one answers false; another type answers false and says so on the standard error stream,
/// with the call stack. `out` is left as it is by every false.
template <class T>
bool getFromMessage(const ktMessage& message, const std::string& key, T& out)
{
    const boost::any& value = message.get(key);
    if (value.empty())
        return false;
    // Compared by name, since each library of the process may have its own type_info of the type.
    const std::string held = value.type().name();
    if (held != typeid(T).name()) {
        std::fprintf(stderr, "getFromMessage : Attribute '%s' has wrong type (is:'%s' != req:'%s')!\n",
                     key.c_str(), held.c_str(), typeid(T).name());
        ktMessage::printBT();
        return false;
    }
    out = boost::any_cast<T>(value);
    return true;
}
