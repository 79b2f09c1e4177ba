#pragma once

#include "host/vrml/CheckedFiles.h"
#include "host/vrml/ReaderMessages.h"
#include "host/vrml/SceneReader.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

class SbString;
class SoInput;
class SoProto;
class SoVRMLInline;

namespace kthost
{

class ReportingInput;

/// How a file is read.
struct ReadingManner
{
    ReadingProgress progress;
    SceneGuard* guard = nullptr; ///< The library gets nothing that it has not let pass; null for nobody.
    ReadLimits limits;
    ReadingFollower follower; ///< Of the guard's own reading: its host.
    bool isSkeleton = false;  ///< Without long lists of numbers.
};

/// The reading of one scene file and of the files it refers to. Takes the library's fetch callbacks while it
/// lives.
///
/// Its place is how many bytes of all texts are behind it, those of files inside where they are named. The
/// host and the guard's process read the same texts, as the library gets them, and count the same places. The
/// library asks for a name between any two things that it does, and each time a place is passed by the
/// guard's process before the host is let on, so that the host meets nothing first. Where that cannot be
/// counted on, the host waits until the guard's process is done with the whole file.
class ReadingSession
{
public:
    /// Names and warnings are collected in `result`, which must outlive the session.
    ReadingSession(SceneReading& result, ReadingManner manner);
    ~ReadingSession();
    ReadingSession(const ReadingSession&) = delete;
    ReadingSession& operator=(const ReadingSession&) = delete;

    /// The scene in the file; null where it was refused, with the reason in `error`, which starts with
    /// `name`.
    CoinRef<SoVRMLGroup> read(const std::string& path, const std::string& name, std::string& error);

private:
    struct OpenFile
    {
        std::string path; ///< Canonical.
        std::string name; ///< For messages.
        std::string folder;
        std::vector<ReaderMessage> messages;
        ReportingInput* input = nullptr; ///< While the library reads its text.
        std::uint64_t start = 0;  ///< The place of its first byte; moves with each file that was read inside.
        std::size_t position = 0; ///< In its text.

        std::uint64_t place() const { return start + position; }
    };

    static void fetchInline(const SbString& fullUrl, void* closure, SoVRMLInline* node);
    static SoProto* fetchPrototype(SoInput* input, const SbString* urls, int urlCount, void* closure);

    CoinRef<SoVRMLGroup> readFile(const std::string& path, const std::string& name, std::string& error);
    CoinRef<SoVRMLGroup> parse(const std::string& bytes, OpenFile file, std::string& error);
    bool isOpen(const std::string& path) const;
    CoinRef<SoVRMLGroup> readLibrary(const std::string& path, std::string& error);
    SoProto* findPrototype(const std::string& url, std::string& error);

    /// The first that there is; otherwise `error` is the first one's.
    SoProto* findPrototype(const std::vector<std::string>& urls, std::string& error);
    void receive(ReaderMessage message);

    /// At the place that the library has come to.
    void warn(const std::string& text);

    /// The text as the library gets it; where it must not get it, `error` says why.
    std::string prepare(const std::string& bytes, std::string& error);
    CoinRef<SoVRMLGroup> readText(std::string text, std::string& error);

    /// The file opened last has ended, and was of this many bytes.
    void closeFile(std::size_t bytes);

    /// The library has read this much of the text of the file opened last; false where it must not go on.
    bool passes(std::size_t position);
    void report(std::size_t position, std::size_t size);

    /// Why none of an EXTERNPROTO's URLs gives it; empty where one does.
    std::string whyMissing(const std::vector<std::string>& urls);

    SceneReading& _result;
    ReadingManner _manner;
    CheckedFiles _checked;
    bool _hasText = false;    ///< The library was to get the first file.
    bool _isFollowing = true; ///< The guard's process can be followed, as far as is known.
    std::size_t _height = 0;  ///< Of all scenes so far, on top of each other.
    std::size_t _percent = 0; ///< Of the first file's text, as was reported.
    ReaderMessages _messages;
    std::vector<OpenFile> _files;                           ///< Being read, each named by the one before it.
    std::map<std::string, CoinRef<SoVRMLGroup>> _libraries; ///< EXTERNPROTO files by path, read once each.
    std::map<std::string, std::string> _missingLibraries;   ///< Those that cannot be read, and why.
    /// How often a file was left out since it was being read already, which it may not be the next time.
    std::size_t _circles = 0;
};

} // namespace kthost
