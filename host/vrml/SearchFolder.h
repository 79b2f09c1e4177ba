#pragma once

#include "host/vrml/TextureImages.h"

#include <Inventor/SoInput.h>

#include <string>

namespace kthost
{

/// The folder that the library and the textures are looked up in, for the time of one file.
class SearchFolder
{
public:
    explicit SearchFolder(const std::string& folder)
        : _folder(folder), _former(TextureImages::setFolder(folder))
    {
        SoInput::addDirectoryFirst(_folder.c_str());
    }
    ~SearchFolder()
    {
        SoInput::removeDirectory(_folder.c_str());
        TextureImages::setFolder(_former);
    }
    SearchFolder(const SearchFolder&) = delete;
    SearchFolder& operator=(const SearchFolder&) = delete;

private:
    std::string _folder;
    std::string _former;
};

} // namespace kthost
