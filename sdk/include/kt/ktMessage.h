#pragma once

#include <kt/Export.h>

#include <boost/any.hpp>

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <typeinfo>

/// A message of the host: a numeric id and attributes of any type under byte-string keys, ordered by key.
/// Plain value, for the GUI thread.
class KT_EXPORT ktMessage
{
public:
    using Attributes = std::map<std::string, boost::any>;

    explicit ktMessage(std::uint32_t id = 0) : _id(id) {}

    std::uint32_t id() const { return _id; }

    /// The value under `key`, or an empty one where there is none. Valid until the message changes.
    const boost::any& get(const std::string& key) const;

    /// Reads the value under `key` into `out` and answers true, if it is held as exactly the type T.
    /// A missing key answers false. Another type, or an empty value (which counts as `void`), answers false
    /// and says so on the standard error stream, with the call stack. `out` is left as it is by every false.
    template <class T>
    bool get(const std::string& key, T& out) const;

    /// Stores `value` under `key`, in place of an older one. `persistent` says whether the attribute is
    /// written to the project's file where the message is the project; for other messages it has no effect.
    /// Values of the types bool, int, double, std::string and std::vector<std::string> outlive the library
    /// that set them; others are to be removed before it is unloaded.
    void set(const std::string& key, const boost::any& value, bool persistent = true);

    /// Takes the attribute away; a missing one is ignored.
    void remove(const std::string& key);

    /// True for an attribute that was set as persistent.
    bool isPersistent(const std::string& key) const;

    const Attributes& attributes() const { return _attributes; }

    /// Writes the present call stack to the standard error stream, a frame a line.
    static void printBT();

private:
    std::uint32_t _id;
    Attributes _attributes;
    std::map<std::string, bool> _persistence;
};

template <class T>
bool ktMessage::get(const std::string& key, T& out) const
{
    const auto found = _attributes.find(key);
    if (found == _attributes.end())
        return false;
    // Compared by name, since each library of the process may have its own type_info of the type.
    const std::string held = found->second.type().name();
    if (held != typeid(T).name()) {
        std::fprintf(stderr, "ktMessage::get : Attribute '%s' has wrong type (is:'%s' != req:'%s')!\n",
                     key.c_str(), held.c_str(), typeid(T).name());
        printBT();
        return false;
    }
    out = boost::any_cast<T>(found->second);
    return true;
}
