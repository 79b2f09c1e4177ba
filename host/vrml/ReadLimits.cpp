#include "host/vrml/ReadLimits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <type_traits>

namespace kthost
{
namespace
{

template <class Limits, class Visitor>
void visitEach(Limits& limits, Visitor visit)
{
    visit("KTHOST_READ_BRACKETS", limits.brackets);
    visit("KTHOST_READ_WORD_BYTES", limits.wordBytes);
    visit("KTHOST_READ_DEPTH", limits.sceneDepth);
    visit("KTHOST_READ_DRAWN", limits.drawnNodes);
    visit("KTHOST_READ_SECONDS", limits.seconds);
    visit("KTHOST_READ_WAIT_SECONDS", limits.waitSeconds);
    visit("KTHOST_READ_MEGABYTES", limits.megabytes);
    visit("KTHOST_READ_FILE_MEGABYTES", limits.fileMegabytes);
    visit("KTHOST_READ_FILES", limits.files);
    visit("KTHOST_READ_PIXELS", limits.imagePixels);
}

/// False, and nothing taken, for what is no number above 0. With a dot whatever the user's language.
template <class Number>
bool take(std::string_view text, Number& limit)
{
    const char* const end = text.data() + text.size();
    double value = 0.0;
    const auto [rest, problem] = std::from_chars(text.data(), end, value);
    if (problem != std::errc() || rest != end || !(value > 0.0))
        return false;
    value = std::min(value, ReadLimits::most);
    limit = static_cast<Number>(std::is_integral_v<Number> ? std::ceil(value) : value);
    return true;
}

template <class Number>
std::string wordOf(Number limit)
{
    std::array<char, 64> digits{};
    const auto [end, problem] = std::to_chars(digits.data(), digits.data() + digits.size(), limit);
    return problem == std::errc() ? std::string(digits.data(), end) : std::string();
}

} // namespace

ReadLimits ReadLimits::fromEnvironment()
{
    ReadLimits limits;
    visitEach(limits, [](const char* variable, auto& limit) {
        if (const char* const text = std::getenv(variable))
            take(text, limit);
    });
    return limits;
}

std::vector<std::string> ReadLimits::words() const
{
    std::vector<std::string> words;
    visitEach(*this, [&](const char*, auto limit) { words.push_back(wordOf(limit)); });
    return words;
}

std::optional<ReadLimits> ReadLimits::fromWords(const std::vector<std::string>& words)
{
    ReadLimits limits;
    auto word = words.begin();
    bool areTaken = true;
    visitEach(limits, [&](const char*, auto& limit) {
        areTaken = areTaken && word != words.end() && take(*word++, limit);
    });
    return areTaken && word == words.end() ? std::optional<ReadLimits>(limits) : std::nullopt;
}

} // namespace kthost
