#pragma once

#include <QTemporaryDir>

#include <fstream>
#include <string>
#include <sys/stat.h>

namespace kthost::test
{

/// The path of one of the real scenes.
inline std::string realScene(const std::string& file)
{
    return std::string(KT_SCENES_DIR) + "/" + file;
}

inline bool haveRealScenes()
{
    struct stat status
    {
    };
    return stat(KT_SCENES_DIR, &status) == 0;
}

/// A folder of scene files that is gone after the test.
class SceneFolder
{
public:
    std::string path(const std::string& name) const { return _folder.path().toStdString() + "/" + name; }

    /// Writes the bytes as they are.
    std::string write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    /// Writes VRML97 text below the header line.
    std::string writeScene(const std::string& name, const std::string& text) const
    {
        return write(name, "#VRML V2.0 utf8\n" + text);
    }

    std::string makeFolder(const std::string& name) const
    {
        mkdir(path(name).c_str(), 0777);
        return path(name);
    }

private:
    QTemporaryDir _folder;
};

} // namespace kthost::test
