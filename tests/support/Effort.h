#pragma once

namespace kt::test
{

/// How often to try what is tried many times: a tenth of it with the sanitizers, where a start of the host or
/// a walk through every value takes many times as long.
constexpr int tries(int plain)
{
#ifdef __SANITIZE_ADDRESS__
    return plain / 10;
#else
    return plain;
#endif
}

} // namespace kt::test
