#include "host/vrml/SceneReader.h"

#include "host/vrml/CoinLibrary.h"
#include "host/vrml/ReadingSession.h"
#include "host/vrml/TextureImages.h"

#include <filesystem>

namespace kthost
{

SceneReading SceneReader::read(const std::string& path, const ReadingProgress& progress)
{
    CoinLibrary::init();
    SceneReading result;
    {
        ReadingSession session(result, progress);
        result.root = session.read(path, path, result.error);
    }
    // Backgrounds ask for their pictures after the reading, when they are first shown.
    if (result.root)
        TextureImages::setFolder(std::filesystem::path(path).parent_path().string());
    return result;
}

} // namespace kthost
