#include <kt/ktLog.h>

#include <kt/ktFailures.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace
{

ktLog::Sink logSink = nullptr;

std::string formatted(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
        return format;
    std::string line(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, arguments);
    return line;
}

void write(ktLog::Level level, const char* format, va_list arguments)
{
    const std::string line = formatted(format, arguments);
    if (logSink)
        logSink(level, line.c_str());
    else if (level != ktLog::Level::Info)
        std::fprintf(stderr, "%s\n", line.c_str());
}

} // namespace

void ktLog::info(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    write(Level::Info, format, arguments);
    va_end(arguments);
}

void ktLog::warning(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    write(Level::Warning, format, arguments);
    va_end(arguments);
}

void ktLog::error(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    write(Level::Error, format, arguments);
    va_end(arguments);
}

void ktLog::setSink(Sink sink)
{
    logSink = sink;
    ktFailures::forget();
}
