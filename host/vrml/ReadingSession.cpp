#include "host/vrml/ReadingSession.h"

#include "host/vrml/DefLexer.h"
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

/// What stands inside each other so far that the host lets go of in the middle of a reading that the guard
/// ends, in nodes: letting go takes the stack, and twenty times as many have room there.
constexpr std::size_t highestFollowed = 1000;

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

/// As the host's own folder has it, links left alone: Inlines are looked for beside the path as given.
std::string absolute(const std::string& path)
{
    std::error_code noFolder;
    const std::filesystem::path whole = std::filesystem::absolute(path, noFolder);
    return noFolder ? path : whole.string();
}

/// What tells one file from another; by its path alone where links cannot be followed.
std::string identity(const std::string& path)
{
    std::error_code isUnreadable;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, isUnreadable);
    return isUnreadable ? absolute(path) : real.string();
}

} // namespace

ReadingSession::ReadingSession(SceneReading& result, ReadingManner manner)
    : _result(result),
      _manner(std::move(manner)),
      _checked(_manner.guard, _manner.limits, _manner.follower.found),
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
    SceneGuard* const guard = _manner.guard;
    const std::string whole = absolute(path); // as the guard's process has it, too
    if (guard)
        guard->check(whole);
    CoinRef<SoVRMLGroup> root = readFile(whole, name, error);
    if (!guard)
        return root;
    if (root && _isFollowing && _checked.change().empty() && guard->letsPass(SceneGuard::end - 1))
        return root;
    // What the text itself has against it says more, with its line.
    const std::string verdict = _hasText || _checked.isStopped() ? guard->verdict() : std::string();
    if (verdict.empty() && _checked.change().empty())
        return root;
    error = name + ": " + (verdict.empty() ? _checked.change() : verdict);
    return {};
}

CoinRef<SoVRMLGroup> ReadingSession::readFile(const std::string& path, const std::string& name,
                                              std::string& error)
{
    error.clear();
    OpenFile file{identity(path), name, std::filesystem::path(path).parent_path().string(), {}};
    if (file.folder.empty())
        file.folder = ".";

    std::string reason;
    std::optional<std::string> bytes;
    if (!_files.empty() && !passes(0)) {
        reason = "the scene is refused";
    } else if (isOpen(file.path) || _files.size() >= _manner.limits.files) {
        reason = "the file refers to itself";
        ++_circles;
    } else {
        bytes = _checked.read(path, name, reason);
    }
    if (bytes && bytes->empty())
        reason = "the file is empty";
    // The library reads whatever it is given, other formats too, and stumbles over them somewhere.
    if (reason.empty() && !DefLexer::isVrml97(*bytes))
        error = located(name, 1, "it does not begin with \"#VRML V2.0 utf8\"");
    else if (!reason.empty())
        error = name + ": " + reason;
    if (!error.empty())
        return {};
    return parse(*bytes, std::move(file), error);
}

bool ReadingSession::isOpen(const std::string& path) const
{
    return std::any_of(_files.begin(), _files.end(), [&](const OpenFile& file) { return file.path == path; });
}

CoinRef<SoVRMLGroup> ReadingSession::parse(const std::string& bytes, OpenFile file, std::string& error)
{
    const SearchFolder folder(file.folder);
    file.start = _files.empty() ? 0 : _files.back().place();
    _files.push_back(std::move(file));
    std::string text = prepare(bytes, error);
    const std::size_t size = text.size();
    CoinRef<SoVRMLGroup> root = error.empty() ? readText(std::move(text), error) : CoinRef<SoVRMLGroup>();
    // It may be the numbers that are wrong, which the guard's process leaves out: the places part here.
    if (!root) {
        _isFollowing = false;
        _checked.leaveOrder();
    }
    closeFile(size);
    if (_files.empty() && _isFollowing && _manner.follower.passed)
        _manner.follower.passed(SceneGuard::end);
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
    for (const MendedText::Remark& remark : mended.remarks)
        _result.warnings.add(located(name, remark.line, remark.words));
    _height += text.height.nodes + text.height.externals * _height;
    _isFollowing = _isFollowing && _height <= highestFollowed;
    return std::move(text.text);
}

CoinRef<SoVRMLGroup> ReadingSession::readText(std::string text, std::string& error)
{
    const std::size_t size = text.size();
    SceneSkeleton skeleton;
    if (_manner.isSkeleton)
        skeleton = SceneSkeleton(std::exchange(text, {}));
    ReportingInput input(_manner.isSkeleton ? skeleton.text() : text, [&](std::size_t position) {
        report(position, size);
        return passes(_manner.isSkeleton ? skeleton.inWhole(position) : position);
    });
    _hasText = _hasText || _files.size() == 1;
    _files.back().input = &input;
    CoinRef<SoVRMLGroup> root(passes(0) ? SoDB::readAllVRML(&input) : nullptr);
    OpenFile& file = _files.back();
    file.input = nullptr;
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

void ReadingSession::closeFile(std::size_t bytes)
{
    const std::uint64_t end = _files.back().start + bytes;
    _files.pop_back();
    if (!_files.empty())
        _files.back().start = end - _files.back().position;
}

bool ReadingSession::passes(std::size_t position)
{
    OpenFile& file = _files.back();
    file.position = std::max(file.position, position); // which is 0 at the end of the text
    if (_manner.follower.passed && _isFollowing)
        _manner.follower.passed(file.place());
    if (!_manner.guard)
        return true;
    if (!_checked.change().empty())
        return false;
    return _isFollowing ? _manner.guard->letsPass(file.place()) : _manner.guard->verdict().empty();
}

void ReadingSession::report(std::size_t position, std::size_t size)
{
    const std::size_t percent = std::min<std::size_t>(position * 100 / size, 100);
    if (!_manner.progress || _files.size() > 1 || percent <= _percent)
        return;
    _percent = percent;
    _manner.progress(static_cast<double>(percent) / 100.0);
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
    if (_files.empty())
        return _result.warnings.add(text);
    const OpenFile& file = _files.back();
    _result.warnings.add(located(file.name, file.input ? file.input->line() : 0, text));
}

} // namespace kthost
