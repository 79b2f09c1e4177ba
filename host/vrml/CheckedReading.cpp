#include "host/vrml/CheckedReading.h"

#include "host/vrml/LimitedRun.h"

#include <sys/resource.h>

#include <cstddef>
#include <cstdint>

namespace kthost
{
namespace
{

/// The host follows what it is told of, so that it must not be led to where memory runs out.
bool needsLittle(const ReadLimits& limits)
{
    rusage usage{};
    constexpr std::size_t part = 4;
    constexpr std::size_t kilobytes = 1024;
    return getrusage(RUSAGE_SELF, &usage) == 0 &&
           static_cast<std::size_t>(usage.ru_maxrss) < limits.megabytes * kilobytes / part;
}

} // namespace

void CheckedReading::read(const std::string& path, const ReadLimits& limits, const ReadingFollower& follower)
{
    // Each look of another process at the place costs both some time, and so does a look at the memory.
    constexpr std::uint64_t stride = 1024;
    std::uint64_t next = 0;
    bool isFollowed = true;
    const auto pass = [&](std::uint64_t place) {
        if (place < next)
            return;
        next = place + stride;
        isFollowed = isFollowed && needsLittle(limits);
        if (isFollowed)
            follower.passed(place);
    };
    LimitedRun::run(limits, [&] { SceneReader::readSkeleton(path, limits, {pass, follower.found}); });
}

} // namespace kthost
