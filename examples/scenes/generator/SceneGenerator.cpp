#include "examples/scenes/generator/SceneGenerator.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace kthost::bench
{
namespace
{

constexpr int membersOfAGroup = 25;
constexpr int membersOfARow = 32;

template <class... Args>
void appendFormat(std::string& text, const char* format, Args... args)
{
    std::array<char, 600> line;
    const int length = std::snprintf(line.data(), line.size(), format, args...);
    text.append(line.data(), static_cast<std::size_t>(length));
}

void appendSensor(std::string& text, int number)
{
    const int index = number - 1;
    const int x = 3 * (index % membersOfARow);
    const int z = 3 * (index / membersOfARow);
    appendFormat(text, "    DEF Sensor%04d TimeSensor { cycleInterval %g loop TRUE }\n", number,
                 1.0 + 0.01 * (index % 400));
    appendFormat(text,
                 "    DEF Path%04d PositionInterpolator { key [ 0 0.25 0.5 0.75 1 ] keyValue [ %d 0 %d, %d 1 "
                 "%d, %d 2 %d, "
                 "%d 1 %d, %d 0 %d ] }\n",
                 number, x, z, x + 1, z, x, z, x - 1, z, x, z);
    appendFormat(text,
                 "    DEF Body%04d Transform { translation %d 0 %d children Shape {\n"
                 "        appearance Appearance { material Material { diffuseColor %g 0.5 %g } } geometry "
                 "Box { } } }\n",
                 number, x, z, 0.1 * (index % 10), 0.1 * (index % 7));
}

void appendRoutes(std::string& text, int number)
{
    appendFormat(text,
                 "ROUTE Sensor%04d.fraction_changed TO Path%04d.set_fraction\n"
                 "ROUTE Path%04d.value_changed TO Body%04d.set_translation\n",
                 number, number, number, number);
}

/// Five nodes, or as many of them as are wanted; answers how many they are.
int appendBlock(std::string& text, int index, int wanted)
{
    constexpr std::array<const char*, 5> blocks = {
        "", " children Shape { }", " children Shape { geometry Sphere { } }",
        " children Shape { appearance Appearance { } geometry Sphere { } }",
        " children Shape { appearance Appearance { material Material { } } geometry Sphere { } }"};
    const int count = std::min<int>(wanted, static_cast<int>(blocks.size()));
    appendFormat(text, "    Transform { translation %d -3 %d%s }\n", 3 * (index % membersOfARow),
                 3 * (index / membersOfARow), blocks[static_cast<std::size_t>(count - 1)]);
    return count;
}

void appendSensors(std::string& text, int sensors)
{
    for (int first = 1; first <= sensors; first += membersOfAGroup) {
        const int end = std::min(first + membersOfAGroup, sensors + 1);
        text += "Group { children [\n";
        for (int number = first; number < end; ++number)
            appendSensor(text, number);
        text += "] }\n";
        for (int number = first; number < end; ++number)
            appendRoutes(text, number);
    }
}

void appendOthers(std::string& text, int nodes)
{
    int block = 0;
    while (nodes > 0) {
        text += "Group { children [\n";
        --nodes;
        for (int member = 0; member < membersOfAGroup && nodes > 0; ++member)
            nodes -= appendBlock(text, block++, nodes);
        text += "] }\n";
    }
}

} // namespace

std::string SceneGenerator::generate(int sensors, int nodes)
{
    std::string text = "#VRML V2.0 utf8\n";
    appendSensors(text, sensors);
    appendOthers(text, nodes);
    return text;
}

} // namespace kthost::bench
