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
    SceneReading result;
    {
        ReadingSession session(result, {progress, guard, guard ? guard->limits() : ReadLimits(), false});
        result.root = session.read(path, path, result.error);
    }
    // Backgrounds ask for their pictures after the reading, when they are first shown.
    if (result.root)
        TextureImages::setFolder(std::filesystem::path(path).parent_path().string());
    return result;
}

void SceneReader::readSkeleton(const std::string& path, const ReadLimits& limits)
{
    CoinLibrary::init();
    TextureImages::leaveOut();
    SceneReading forgotten;
    ReadingSession session(forgotten, {{}, nullptr, limits, true});
    session.read(path, path, forgotten.error);
}

} // namespace kthost
