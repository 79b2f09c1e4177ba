#pragma once

#include <kt/Export.h>

/// The host's script interpreter. GUI thread.
class KT_EXPORT ktScript
{
public:
    using Runner = bool (*)(const char* statement);

    /// Runs one statement in the host's script namespace; false where it raised or where there is no
    /// interpreter (or no statement: null), which the log then tells.
    static bool run(const char* statement);

    /// For the host: who runs statements; null for nobody.
    static void setRunner(Runner runner);
};
