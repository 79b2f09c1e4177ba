#pragma once

#include <kt/Export.h>

/// The host's log. Formats as printf does; a line end is added. GUI thread.
class KT_EXPORT ktLog
{
public:
    enum class Level { Info, Warning, Error };

    /// Gets each line, without its end.
    using Sink = void (*)(Level level, const char* line);

    static void info(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void warning(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void error(const char* format, ...) __attribute__((format(printf, 1, 2)));

    /// For the host: where lines go. Without a sink (null) warnings and errors go to the standard error
    /// stream.
    static void setSink(Sink sink);
};
