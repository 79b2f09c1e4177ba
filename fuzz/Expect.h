#pragma once

#include <cstdio>
#include <cstdlib>

namespace kt::fuzz
{

/// Ends the process with a word where `holds` is false: what a fuzzer takes for a finding.
inline void expect(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace kt::fuzz
