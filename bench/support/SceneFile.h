#pragma once

#include "examples/scenes/generator/SceneGenerator.h"

#include <QTemporaryDir>

#include <fstream>
#include <string>

namespace kthost::bench
{

/// A generated scene as a file, for as long as this lives.
class SceneFile
{
public:
    SceneFile(int sensors, int nodes) : SceneFile(SceneGenerator::generate(sensors, nodes)) {}

    explicit SceneFile(const std::string& text) : _path(_folder.path().toStdString() + "/scene.wrl")
    {
        std::ofstream(_path, std::ios::binary) << text;
    }

    const std::string& path() const { return _path; }

private:
    QTemporaryDir _folder;
    std::string _path;
};

} // namespace kthost::bench
