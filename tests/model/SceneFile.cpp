#include "tests/model/SceneFile.h"

#include <sstream>

namespace kt::test
{
namespace
{

std::string fieldsOf(const FileNode& node)
{
    std::ostringstream out;
    out << " cycleInterval " << node.cycleInterval << " loop " << (node.isLooping ? "TRUE" : "FALSE")
        << " enabled " << (node.isEnabled ? "TRUE" : "FALSE") << " startTime " << node.startTime
        << " stopTime " << node.stopTime << ' ';
    return out.str();
}

} // namespace

std::string vrml(const SceneFile& scene)
{
    std::string text = "#VRML V2.0 utf8\n";
    bool isOpen = false;
    for (const FileNode& node : scene) {
        if (isOpen && !node.isInside) {
            text += "] }\n";
            isOpen = false;
        }
        text += node.name.empty() ? std::string() : "DEF " + node.name + ' ';
        if (node.isSensor) {
            text += "TimeSensor {" + fieldsOf(node) + "}\n";
        } else if (isOpen) {
            text += "Transform { }\n";
        } else {
            text += "Transform { children [\n";
            isOpen = true;
        }
    }
    return text + (isOpen ? "] }\n" : "");
}

} // namespace kt::test
