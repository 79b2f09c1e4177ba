// The part of ReadingSession that reads what a scene refers to: Inlines and EXTERNPROTOs.
#include "host/vrml/ReadingSession.h"

#include <Inventor/VRMLnodes/SoVRMLInline.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoProto.h>

#include <filesystem>

namespace kthost
{
namespace
{

std::string fileName(const std::string& path)
{
    return std::filesystem::path(path).filename().string();
}

} // namespace

std::string ReadingSession::whyMissing(const std::vector<std::string>& urls)
{
    std::string problem;
    return findPrototype(urls, problem) ? std::string() : problem;
}

void ReadingSession::fetchInline(const SbString& /*fullUrl*/, void* closure, SoVRMLInline* node)
{
    auto& session = *static_cast<ReadingSession*>(closure);
    if (session._files.empty() || node->url.getNum() == 0)
        return;
    std::string problem;
    for (int i = 0; i < node->url.getNum(); ++i) {
        const LocalUrl file =
            session._checked.resolve(node->url[i].getString(), session._files.back().folder);
        std::string error = file.problem;
        if (!file.path.empty()) {
            const CoinRef<SoVRMLGroup> scene = session.readFile(file.path, fileName(file.path), error);
            if (scene) {
                node->setChildData(scene.get());
                return;
            }
        }
        if (problem.empty())
            problem = error;
    }
    session.warn("Inline left out: " + problem);
}

SoProto* ReadingSession::fetchPrototype(SoInput* input, const SbString* urls, int urlCount, void* closure)
{
    std::vector<std::string> all;
    for (int i = 0; i < urlCount; ++i)
        all.emplace_back(urls[i].getString());
    std::string problem;
    auto& session = *static_cast<ReadingSession*>(closure);
    const std::size_t known = session._libraries.size();
    SoProto* const prototype = session.findPrototype(all, problem);
    // Its height was not there yet when it was added up.
    session._isFollowing = session._isFollowing && session._libraries.size() == known;
    if (!prototype)
        SoReadError::post(input, "EXTERNPROTO: %s", problem.c_str());
    return prototype;
}

SoProto* ReadingSession::findPrototype(const std::vector<std::string>& urls, std::string& error)
{
    std::string problem = "it has no URL";
    for (const std::string& url : urls) {
        if (SoProto* const prototype = findPrototype(url, error))
            return prototype;
        if (&url == &urls.front())
            problem = error;
    }
    error = problem;
    return nullptr;
}

SoProto* ReadingSession::findPrototype(const std::string& url, std::string& error)
{
    const LocalUrl file = _checked.resolve(url, _files.empty() ? std::string() : _files.back().folder);
    error = file.problem;
    const CoinRef<SoVRMLGroup> library =
        file.path.empty() ? CoinRef<SoVRMLGroup>() : readLibrary(file.path, error);
    if (!library)
        return nullptr;
    for (int i = 0; i < library->getNumChildren(); ++i) {
        SoNode* const child = library->getChild(i);
        if (!child->isOfType(SoProto::getClassTypeId()))
            continue;
        auto* const prototype = static_cast<SoProto*>(child);
        if (file.fragment.empty() || prototype->getProtoName() == file.fragment.c_str())
            return prototype;
    }
    error = "'" + url + "' has no such PROTO";
    return nullptr;
}

CoinRef<SoVRMLGroup> ReadingSession::readLibrary(const std::string& path, std::string& error)
{
    const auto known = _libraries.find(path);
    if (known != _libraries.end())
        return known->second;
    const auto missing = _missingLibraries.find(path);
    if (missing != _missingLibraries.end()) {
        error = missing->second;
        return {};
    }
    const std::size_t circles = _circles;
    CoinRef<SoVRMLGroup> scene = readFile(path, fileName(path), error);
    if (scene)
        _libraries.emplace(path, scene);
    else if (_circles == circles)
        _missingLibraries.emplace(path, error);
    return scene;
}

} // namespace kthost
