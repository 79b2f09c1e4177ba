#include "host/vrml/TextureImages.h"

#include "host/vrml/ImageDecoder.h"
#include "host/vrml/ImageGuard.h"
#include "host/vrml/LocalUrl.h"
#include "host/vrml/ReadLimits.h"

#include <Inventor/SbImage.h>
#include <Inventor/VRMLnodes/SoVRMLImageTexture.h>

#include <cstdint>
#include <limits>
#include <utility>

namespace kthost
{
namespace
{

ReadLimits present;
std::weak_ptr<ImageGuard> presentGuard;

std::string& folder()
{
    static std::string path;
    return path;
}

SbBool readForLibrary(const SbString& path, SbImage* image, void* /*closure*/)
{
    return TextureImages::read(path.getString(), *image) ? TRUE : FALSE;
}

SbBool fetchTexture(const SbString& /*firstUrl*/, void* /*closure*/, SoVRMLImageTexture* texture)
{
    for (int i = 0; i < texture->url.getNum(); ++i) {
        const LocalUrl file = LocalUrl::resolve(texture->url[i].getString(), folder());
        SbImage image;
        if (!file.path.empty() && TextureImages::read(file.path, image)) {
            texture->setImage(image);
            return TRUE;
        }
    }
    return FALSE;
}

} // namespace

void TextureImages::install()
{
    SbImage::addReadImageCB(readForLibrary, nullptr);
    SoVRMLImageTexture::setPrequalifyFileCallBack(fetchTexture, nullptr);
    SoVRMLImageTexture::setDelayFetchURL(FALSE);
    // An image that was dropped for its age would be looked up again in the folder of another file.
    SoVRMLImageTexture::setImageDataMaxAge(std::numeric_limits<std::uint32_t>::max());
}

void TextureImages::setReading(const ReadLimits& limits, const std::shared_ptr<ImageGuard>& guard)
{
    present = limits;
    presentGuard = guard;
    if (guard)
        guard->startOver();
}

void TextureImages::leaveOut()
{
    SoVRMLImageTexture::setDelayFetchURL(TRUE);
}

std::string TextureImages::setFolder(std::string path)
{
    return std::exchange(folder(), std::move(path));
}

bool TextureImages::read(const std::string& path, SbImage& image)
{
    const auto room = [&](const ImageSize& size) {
        image.setValue({static_cast<short>(size.width), static_cast<short>(size.height)}, size.components,
                       nullptr);
        SbVec2s same;
        int components = 0;
        return image.getValue(same, components);
    };
    const std::shared_ptr<ImageGuard> guard = presentGuard.lock();
    return guard ? guard->read(path, room)
                 : ImageDecoder::decode(path, present, room) == ImageDecoder::Result::Read;
}

} // namespace kthost
