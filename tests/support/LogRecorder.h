#pragma once

#include <kt/ktLog.h>

#include <string>
#include <vector>

namespace kt::test
{

/// Gets the host's log for as long as it lives; one at a time.
class LogRecorder
{
public:
    LogRecorder()
    {
        lines().clear();
        ktLog::setSink(record);
    }
    ~LogRecorder() { ktLog::setSink(nullptr); }
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;

    /// Each line with its level before it: "error: ...".
    static std::vector<std::string>& lines()
    {
        static std::vector<std::string> all;
        return all;
    }

private:
    static void record(ktLog::Level level, const char* line)
    {
        const char* const levels[] = {"info: ", "warning: ", "error: "};
        lines().push_back(levels[static_cast<int>(level)] + std::string(line));
    }
};

} // namespace kt::test
