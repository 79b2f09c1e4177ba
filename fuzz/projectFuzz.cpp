// Any bytes are a project or are refused in one line; a project comes out of a save as it went in.
#include "host/project/AttributeValue.h"
#include "host/project/ProjectError.h"
#include "host/project/ProjectFormat.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

void expect(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

bool areSame(const ktMessage::Attributes& a, const ktMessage::Attributes& b)
{
    if (a.size() != b.size())
        return false;
    for (const auto& [name, value] : a) {
        const auto other = b.find(name);
        if (other == b.end() || !kthost::AttributeValue::areSame(value, other->second))
            return false;
    }
    return true;
}

void saveAndRead(const kthost::Project& project)
{
    const QByteArray saved = kthost::ProjectFormat::toJson(project);
    const kthost::Project back = kthost::ProjectFormat::fromJson(saved, QStringLiteral("saved"));
    expect(back.scene == project.scene && back.isSceneOutside == project.isSceneOutside,
           "the scene comes back");
    expect(areSame(back.attributes, project.attributes), "the attributes come back");
    // Not byte for byte: Qt may put keys with zeros in them into another order.
    expect(kthost::ProjectFormat::toJson(back).size() == saved.size(), "a second save writes as much");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray document(reinterpret_cast<const char*>(data), static_cast<int>(size));
    kthost::Project project;
    try {
        project = kthost::ProjectFormat::fromJson(document, QStringLiteral("p.ktproj"));
    } catch (const kthost::ProjectError& error) {
        const char* line = error.what();
        expect(std::strncmp(line, "p.ktproj:", 9) == 0 && !std::strchr(line, '\n'), "one line with the file");
        return 0;
    }
    saveAndRead(project);
    return 0;
}
