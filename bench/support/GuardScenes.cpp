#include "bench/support/GuardScenes.h"

#include "examples/scenes/generator/SceneGenerator.h"
#include "host/vrml/SceneReader.h"

#include <QImage>
#include <QRandomGenerator>
#include <QString>

#include <zlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace kthost::bench
{
namespace
{

const std::string header = "#VRML V2.0 utf8\n";

/// A recorded movement: one sensor, 40 interpolators of so many keys.
std::string recording(int keys)
{
    std::string text = header + "DEF T TimeSensor { cycleInterval 10 loop TRUE }\n";
    for (int joint = 0; joint < 40; ++joint) {
        const std::string name = std::to_string(joint);
        std::string times;
        std::string values;
        for (int key = 0; key < keys; ++key) {
            times += std::to_string(static_cast<double>(key) / keys) + " ";
            values += "0.577 0.577 0.577 " + std::to_string(0.001 * key) + ", ";
        }
        text += "DEF J" + name + " Transform { children Shape { geometry Box {} } }\nDEF I" + name +
                " OrientationInterpolator { key [ " + times + " ] keyValue [ " + values +
                " ] }\nROUTE T.fraction_changed TO I" + name + ".set_fraction\nROUTE I" + name +
                ".value_changed TO J" + name + ".set_rotation\n";
    }
    return text;
}

/// A few nodes, used over and over.
std::string uses(int count)
{
    std::string text = header + "DEF Look Appearance { material DEF Paint Material {} }\n"
                                "DEF Ball Shape { appearance USE Look geometry Sphere {} }\n";
    for (int i = 0; i < count; ++i)
        text += "Transform { translation " + std::to_string(i) + " 0 0 children [ USE Ball ] }\n";
    return text;
}

std::string instances(int count)
{
    std::string text = header + "PROTO Post [ field SFVec3f at 0 0 0 exposedField SFColor tint 1 1 1 ]\n"
                                "{ Transform { translation IS at children Shape { appearance Appearance {\n"
                                "material Material { diffuseColor IS tint } } geometry Cylinder {} } } }\n";
    for (int i = 0; i < count; ++i)
        text += "Post { at " + std::to_string(i) + " 0 0 tint 0.5 0.25 0." + std::to_string(i % 10) + " }\n";
    return text;
}

/// Noise, which no format makes small.
void writeImage(const std::string& path, int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < side; ++y)
        random.fillRange(reinterpret_cast<quint32*>(image.scanLine(y)), side);
    image.save(QString::fromStdString(path), "PNG");
}

/// So many images, each on several shapes.
std::string textured(const std::string& folder, int images, int side)
{
    constexpr int shapes = 1000;
    std::string text = header;
    const std::string name = "texture" + std::to_string(side) + "-";
    for (int i = 0; i < images; ++i)
        writeImage(folder + "/" + name + std::to_string(i) + ".png", side);
    for (int i = 0; i < shapes; ++i) {
        const std::string image = std::to_string(i % images);
        const std::string texture =
            i < images ? "DEF T" + image + " ImageTexture { url \"" + name + image + ".png\" }"
                       : "USE T" + image;
        text += "Transform { translation " + std::to_string(i) + " 0 0 children [ Shape {\n" +
                "appearance Appearance { texture " + texture + " } geometry Box {} } ] }\n";
    }
    return text;
}

void write(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

void pack(const std::string& path, const std::string& text)
{
    const gzFile file = gzopen(path.c_str(), "wb");
    gzwrite(file, text.data(), static_cast<unsigned>(text.size()));
    gzclose(file);
}

} // namespace

std::vector<GuardScene> writeGuardScenes(const std::string& folder)
{
    std::vector<GuardScene> scenes;
    const auto next = [&](const std::string& kind) {
        scenes.push_back({kind, folder + "/" + std::to_string(scenes.size()) + ".wrl"});
        return scenes.back().path;
    };
    write(next("numbers"), recording(80));
    write(next("numbers"), recording(800));
    write(next("nodes"), SceneGenerator::generate(0, 8000));
    write(next("sensors and routes"), SceneGenerator::generate(300, 0));
    write(next("sensors and routes"), SceneGenerator::generate(1000, 0));
    write(next("uses"), uses(3000));
    write(next("prototype instances"), instances(3000));
    pack(next("packed sensors"), SceneGenerator::generate(3000, 0));
    write(folder + "/part.wrl", SceneGenerator::generate(100, 1000));
    write(next("Inlines"), header + "Inline { url \"part.wrl\" }\nInline { url \"part.wrl\" }\n" +
                               "Inline { url \"part.wrl\" }\n#" + std::string(100000, ' '));
    write(next("300 small textures"), textured(folder, 300, 64));
    write(next("8 large textures"), textured(folder, 8, 1024));
    return scenes;
}

std::vector<GuardScene> realGuardScenes(const std::string& folder)
{
    namespace fs = std::filesystem;
    std::vector<GuardScene> scenes;
    std::error_code none;
    for (const auto& entry : fs::recursive_directory_iterator(folder, none)) {
        constexpr std::uintmax_t large = 100000;
        if (entry.path().extension() == ".wrl" && entry.file_size() >= large &&
            SceneReader::read(entry.path().string()))
            scenes.push_back({entry.path().filename().string(), entry.path().string()});
    }
    std::sort(scenes.begin(), scenes.end(),
              [](const GuardScene& a, const GuardScene& b) { return a.path < b.path; });
    return scenes;
}

} // namespace kthost::bench
