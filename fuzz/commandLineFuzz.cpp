// Any words, parted by zero bytes, are options or are refused in one line that says what is off.
#include "fuzz/Bytes.h"
#include "fuzz/Expect.h"
#include "host/app/CommandLine.h"
#include "host/app/HostError.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace
{

using namespace kthost;
using kt::fuzz::expect;

std::vector<std::string> wordsOf(const std::string& bytes)
{
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin <= bytes.size();) {
        const std::size_t end = std::min(bytes.find('\0', begin), bytes.size());
        words.push_back(bytes.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

/// What an action asks for is something that can be done.
struct Check
{
    void operator()(const ListAction&) const {}
    void operator()(const DumpAction&) const {}
    void operator()(const SendAction& send) const
    {
        expect(!send.message.empty() && send.message.find('=') == std::string::npos, "a message has a name");
    }
    void operator()(const RunAction& run) const
    {
        expect(std::isfinite(run.seconds) && run.seconds >= 0.0, "a time that can pass");
    }
    void operator()(const FpsAction& rate) const
    {
        expect(rate.framesPerSecond > 0.0 && rate.framesPerSecond <= 1e6, "a rate that can be kept");
    }
    void operator()(const ScreenshotAction& picture) const { expect(!picture.file.isEmpty(), "a file"); }
    void operator()(const FramesAction& frames) const { expect(!frames.folder.isEmpty(), "a folder"); }
    void operator()(const SizeAction& picture) const
    {
        const QSize size = picture.size;
        expect(size.width() > 0 && size.width() <= 16384 && size.height() > 0 && size.height() <= 16384,
               "a size that a picture can have");
    }
    void operator()(const SaveAction& save) const
    {
        expect(save.file.endsWith(QLatin1String(".ktproj"), Qt::CaseInsensitive), "a project's name");
    }
    void operator()(const ScriptAction& script) const { expect(!script.file.isEmpty(), "a script"); }
};

void checkRefusal(const HostError& error)
{
    const std::string line = error.what();
    expect(error.status() == ExitStatus::BadArguments, "the arguments are off");
    expect(line.find(": ") != std::string::npos && line.find('\n') == std::string::npos,
           "one line, what and why");
    if (line.rfind("--size: '", 0) == 0)
        expect(line.find("' is no size such as 1280x800, at most 16384 pixels a side") != std::string::npos,
               "the why is whole");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kt::fuzz::Bytes bytes(data, size);
    const std::vector<std::string> words = wordsOf(bytes.rest());
    std::vector<const char*> argv{"kthost"};
    for (const std::string& word : words)
        argv.push_back(word.c_str());
    CommandLine line;
    try {
        line = CommandLine::parse(static_cast<int>(argv.size()), argv.data());
    } catch (const HostError& error) {
        checkRefusal(error);
        return 0;
    }
    expect(line.actions.size() + line.pluginFiles.size() + line.pluginFolders.size() <= words.size(),
           "a word asks for one thing");
    for (const Action& action : line.actions)
        std::visit(Check(), action);
    return 0;
}
