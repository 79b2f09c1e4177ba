#include "host/vrml/ReadLimits.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace kthost
{
namespace
{

template <class Number>
void take(const char* variable, Number& limit)
{
    const char* const text = std::getenv(variable);
    if (!text)
        return;
    const char* const end = text + std::strlen(text);
    double value = 0.0;
    constexpr double largest = 1e9;
    // With a dot whatever the user's language.
    const auto [rest, problem] = std::from_chars(text, end, value);
    if (problem == std::errc() && rest == end && value > 0.0 && value <= largest)
        limit = static_cast<Number>(std::is_integral_v<Number> ? std::ceil(value) : value);
}

} // namespace

ReadLimits ReadLimits::fromEnvironment()
{
    ReadLimits limits;
    take("KTHOST_READ_BRACKETS", limits.brackets);
    take("KTHOST_READ_WORD_BYTES", limits.wordBytes);
    take("KTHOST_READ_DEPTH", limits.sceneDepth);
    take("KTHOST_READ_DRAWN", limits.drawnNodes);
    take("KTHOST_READ_SECONDS", limits.seconds);
    take("KTHOST_READ_MEGABYTES", limits.megabytes);
    return limits;
}

} // namespace kthost
