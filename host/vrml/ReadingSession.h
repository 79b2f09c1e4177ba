#pragma once

#include "host/vrml/ReaderMessages.h"
#include "host/vrml/SceneReader.h"

#include <map>
#include <string>
#include <vector>

class SbString;
class SoInput;
class SoProto;
class SoVRMLInline;

namespace kthost
{

/// How a file is read.
struct ReadingManner
{
    ReadingProgress progress;
    SceneGuard* guard = nullptr; ///< Asked before the library gets the first file; null for nobody.
    ReadLimits limits;
    bool isSkeleton = false; ///< Without long lists of numbers.
};

/// The reading of one scene file and of the files it refers to. Takes the library's fetch callbacks while it
/// lives.
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
    };

    static void fetchInline(const SbString& fullUrl, void* closure, SoVRMLInline* node);
    static SoProto* fetchPrototype(SoInput* input, const SbString* urls, int urlCount, void* closure);

    CoinRef<SoVRMLGroup> parse(const std::string& bytes, OpenFile file, std::string& error);
    CoinRef<SoVRMLGroup> readLibrary(const std::string& path, std::string& error);
    SoProto* findPrototype(const std::string& url, std::string& error);

    /// The first that there is; otherwise `error` is the first one's.
    SoProto* findPrototype(const std::vector<std::string>& urls, std::string& error);
    void receive(ReaderMessage message);
    void warn(const std::string& text);

    /// The text as the library gets it; where it must not get it, `error` says why.
    std::string prepare(const std::string& bytes, std::string& error);
    CoinRef<SoVRMLGroup> readText(const std::string& text, std::string& error);

    /// What the guard has against the first file; empty where it has nothing.
    const std::string& askGuard();

    /// Why none of an EXTERNPROTO's URLs gives it; empty where one does.
    std::string whyMissing(const std::vector<std::string>& urls);

    SceneReading& _result;
    ReadingManner _manner; ///< Its guard is null once it was asked.
    std::string _verdict;
    ReaderMessages _messages;
    std::vector<OpenFile> _files;                           ///< Being read, each named by the one before it.
    std::map<std::string, CoinRef<SoVRMLGroup>> _libraries; ///< EXTERNPROTO files by path, read once each.
};

} // namespace kthost
