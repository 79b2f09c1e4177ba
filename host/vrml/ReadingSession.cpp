#include "host/vrml/ReadingSession.h"

#include "host/vrml/DefLexer.h"
#include "host/vrml/FileBytes.h"
#include "host/vrml/LocalUrl.h"
#include "host/vrml/NodeKinds.h"
#include "host/vrml/ReportingInput.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/SceneSkeleton.h"
#include "host/vrml/SearchFolder.h"
#include "host/vrml/TextMender.h"

#include <Inventor/SoDB.h>
#include <Inventor/VRMLnodes/SoVRMLInline.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoProto.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <utility>

namespace kthost
{
namespace
{

/// How many files may be open inside each other; more is taken for files that refer to each other without
/// end.
constexpr std::size_t deepestFile = 64;

/// What the library posts once a process, whatever the scene: about its missing script engine (SceneBuilder
/// counts the scripts of each scene instead) and its sound. Beginnings of messages.
constexpr std::string_view aboutTheLibrary[] = {"No script language evaluation engine available.",
                                                "You are using a SoVRMLSound node"};

bool startsWith(const std::string& text, std::string_view beginning)
{
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool isAboutTheScene(const ReaderMessage& message)
{
    return std::none_of(std::begin(aboutTheLibrary), std::end(aboutTheLibrary),
                        [&](std::string_view beginning) { return startsWith(message.words, beginning); });
}

std::string located(const std::string& name, std::size_t line, const std::string& words)
{
    return name + (line > 0 ? ", line " + std::to_string(line) : std::string()) + ": " + words;
}

std::string located(const std::string& name, const ReaderMessage& message)
{
    return located(name, static_cast<std::size_t>(std::max(message.line, 0)), message.words);
}

/// The message that says why the reader gave up: of those that it posted last, at one line, the first one.
/// What follows it are the callers' comments; what went before, at other lines, did not stop it. Routes never
/// do, though those that lead nowhere are reported once more at the end of the file.
const ReaderMessage* reasonOf(const std::vector<ReaderMessage>& messages)
{
    const ReaderMessage* reason = nullptr;
    for (auto message = messages.rbegin(); message != messages.rend(); ++message) {
        if (!message->isReadError || startsWith(message->words, "Unable to create ROUTE"))
            continue;
        if (reason && message->line != reason->line)
            break;
        reason = &*message;
    }
    return reason;
}

std::string fileName(const std::string& path)
{
    return std::filesystem::path(path).filename().string();
}

} // namespace

ReadingSession::ReadingSession(SceneReading& result, ReadingManner manner)
    : _result(result),
      _manner(std::move(manner)),
      _messages([this](ReaderMessage message) { receive(std::move(message)); })
{
    SoVRMLInline::setFetchURLCallBack(fetchInline, this);
    SoProto::setFetchExternProtoCallback(fetchPrototype, this);
}

ReadingSession::~ReadingSession()
{
    SoVRMLInline::setFetchURLCallBack(nullptr, nullptr);
    SoProto::setFetchExternProtoCallback(nullptr, nullptr);
}

CoinRef<SoVRMLGroup> ReadingSession::read(const std::string& path, const std::string& name,
                                          std::string& error)
{
    error.clear();
    std::error_code ignored;
    OpenFile file{std::filesystem::weakly_canonical(path, ignored).string(),
                  name,
                  std::filesystem::path(path).parent_path().string(),
                  {}};
    if (file.folder.empty())
        file.folder = ".";

    std::string reason;
    const bool isOpen = std::any_of(_files.begin(), _files.end(),
                                    [&](const OpenFile& other) { return other.path == file.path; });
    std::optional<std::string> bytes;
    if (isOpen || _files.size() >= deepestFile)
        reason = "the file refers to itself";
    else
        bytes = FileBytes::readUnpacked(path, reason);
    if (bytes && bytes->empty())
        reason = "the file is empty";
    if (!reason.empty()) {
        error = name + ": " + reason;
        return {};
    }
    return parse(*bytes, std::move(file), error);
}

CoinRef<SoVRMLGroup> ReadingSession::parse(const std::string& bytes, OpenFile file, std::string& error)
{
    // The library reads whatever it is given, other formats too, and stumbles over them somewhere.
    if (!DefLexer::isVrml97(bytes)) {
        error = located(file.name, 1, "it does not begin with \"#VRML V2.0 utf8\"");
        return {};
    }
    // The guard reads the file while we do what we need not be guarded from.
    if (_manner.guard)
        _manner.guard->check(file.path);
    const SearchFolder folder(file.folder);
    _files.push_back(std::move(file));
    const std::string text = prepare(bytes, error);
    CoinRef<SoVRMLGroup> root = error.empty() ? readText(text, error) : CoinRef<SoVRMLGroup>();
    _files.pop_back();
    return root;
}

std::string ReadingSession::prepare(const std::string& bytes, std::string& error)
{
    const std::string name = _files.back().name;
    const MendedText mended =
        TextMender::mend(bytes, {NodeKinds::isKnown,
                                 [this](const std::vector<std::string>& urls) { return whyMissing(urls); }});
    ReaderText text = DefLexer::rewrite(mended.text, _result.names, _manner.limits);
    if (!text)
        error = located(name, text.line, text.problem);
    else if (!askGuard().empty())
        error = name + ": " + askGuard();
    for (const MendedText::Remark& remark : mended.remarks)
        _result.warnings.add(located(name, remark.line, remark.words));
    return _manner.isSkeleton ? SceneSkeleton::of(text.text) : std::move(text.text);
}

CoinRef<SoVRMLGroup> ReadingSession::readText(const std::string& text, std::string& error)
{
    const bool isWholeScene = _files.size() == 1;
    ReportingInput input(text, isWholeScene ? _manner.progress : ReadingProgress());
    CoinRef<SoVRMLGroup> root(SoDB::readAllVRML(&input));
    const OpenFile& file = _files.back();
    if (!root) {
        const ReaderMessage* reason = reasonOf(file.messages);
        error =
            reason ? located(file.name, *reason) : file.name + ": the reader refuses it and gives no reason";
        return {};
    }
    for (const ReaderMessage& message : file.messages)
        _result.warnings.add(located(file.name, message));
    return root;
}

const std::string& ReadingSession::askGuard()
{
    if (SceneGuard* const guard = std::exchange(_manner.guard, nullptr))
        _verdict = guard->verdict();
    return _verdict;
}

std::string ReadingSession::whyMissing(const std::vector<std::string>& urls)
{
    // The library gets these files at once, so the guard must have spoken.
    if (!askGuard().empty())
        return {};
    std::string problem;
    return findPrototype(urls, problem) ? std::string() : problem;
}

void ReadingSession::receive(ReaderMessage message)
{
    if (_files.empty() || !isAboutTheScene(message))
        return;
    message.words = _result.names.translate(message.words);
    _files.back().messages.push_back(std::move(message));
}

void ReadingSession::warn(const std::string& text)
{
    _result.warnings.add(_files.empty() ? text : _files.back().name + ": " + text);
}

void ReadingSession::fetchInline(const SbString& /*fullUrl*/, void* closure, SoVRMLInline* node)
{
    auto& session = *static_cast<ReadingSession*>(closure);
    if (session._files.empty() || node->url.getNum() == 0)
        return;
    std::string problem;
    for (int i = 0; i < node->url.getNum(); ++i) {
        const LocalUrl file = LocalUrl::resolve(node->url[i].getString(), session._files.back().folder);
        std::string error = file.problem;
        if (!file.path.empty()) {
            const CoinRef<SoVRMLGroup> scene = session.read(file.path, fileName(file.path), error);
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
    SoProto* const prototype = static_cast<ReadingSession*>(closure)->findPrototype(all, problem);
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
    const LocalUrl file = LocalUrl::resolve(url, _files.empty() ? std::string() : _files.back().folder);
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
    CoinRef<SoVRMLGroup> scene = read(path, fileName(path), error);
    if (scene)
        _libraries.emplace(path, scene);
    return scene;
}

} // namespace kthost
