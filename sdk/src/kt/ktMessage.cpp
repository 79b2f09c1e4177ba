#include <kt/ktMessage.h>

#include <execinfo.h>
#include <unistd.h>

#include <vector>

namespace
{

/// Holds a T anew, in code of ours; false where the value is of another type.
template <class T>
bool hold(boost::any& slot, const boost::any& value)
{
    const T* held = boost::any_cast<T>(&value);
    if (held)
        slot = T(*held);
    return held != nullptr;
}

template <class... Types>
boost::any heldByUs(const boost::any& value)
{
    boost::any slot;
    return (hold<Types>(slot, value) || ...) ? slot : value;
}

} // namespace

const boost::any& ktMessage::get(const std::string& key) const
{
    static const boost::any none;
    const auto found = _attributes.find(key);
    return found == _attributes.end() ? none : found->second;
}

void ktMessage::set(const std::string& key, const boost::any& value, bool persistent)
{
    // A value that a plug-in made is destroyed by the plug-in's code, which may be unloaded by then.
    _attributes[key] = heldByUs<bool, int, double, std::string, std::vector<std::string>>(value);
    _persistence[key] = persistent;
}

void ktMessage::remove(const std::string& key)
{
    _attributes.erase(key);
    _persistence.erase(key);
}

bool ktMessage::isPersistent(const std::string& key) const
{
    const auto found = _persistence.find(key);
    return found != _persistence.end() && found->second;
}

void ktMessage::printBT()
{
    constexpr int mostFrames = 64;
    void* frames[mostFrames];
    const int count = backtrace(frames, mostFrames);
    std::fflush(stderr);
    backtrace_symbols_fd(frames, count, STDERR_FILENO);
}
