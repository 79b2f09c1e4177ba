#include <kt/ktMessage.h>

#include <execinfo.h>
#include <unistd.h>

const boost::any& ktMessage::get(const std::string& key) const
{
    static const boost::any none;
    const auto found = _attributes.find(key);
    return found == _attributes.end() ? none : found->second;
}

void ktMessage::set(const std::string& key, const boost::any& value, bool persistent)
{
    _attributes[key] = value;
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
