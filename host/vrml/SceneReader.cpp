#include "host/vrml/SceneReader.h"

#include "host/vrml/CoinLibrary.h"
#include "host/vrml/ReadingSession.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/TextureImages.h"

#include <filesystem>

namespace kthost
{

SceneReading SceneReader::read(const std::string& path, const ReadingProgress& progress, SceneGuard* guard)
{
    CoinLibrary::init();
    const ReadLimits limits = guard ? guard->limits() : ReadLimits();
    TextureImages::setReading(limits, guard ? guard->images() : nullptr);
    SceneReading result;
    {
        ReadingSession session(result, {progress, guard, limits, {}, false});
        result.root = session.read(path, path, result.error);
    }
    if (result.root && guard)
        result.end = SceneEnd(result.root, *guard, path);
    // Backgrounds ask for their pictures after the reading, when they are first shown.
    if (result.root)
        TextureImages::setFolder(std::filesystem::path(path).parent_path().string());
    return result;
}

void SceneReader::readSkeleton(const std::string& path, const ReadLimits& limits,
                               const ReadingFollower& follower)
{
    CoinLibrary::init();
    TextureImages::leaveOut();
    SceneReading forgotten;
    ReadingSession session(forgotten, {{}, nullptr, limits, follower, true});
    session.read(path, path, forgotten.error);
}

} // namespace kthost
