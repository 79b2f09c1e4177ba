// Any bytes are the text of a scene: what is done to it before the reader's library gets it keeps its lines
// and its names.
#include "host/vrml/DefLexer.h"
#include "host/vrml/NodeNames.h"
#include "host/vrml/SceneSkeleton.h"
#include "host/vrml/TextMender.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

using namespace kthost;

void expect(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

auto lines(const std::string& text)
{
    return std::count(text.begin(), text.end(), '\n');
}

/// Every other prototype is missing.
MendedText mend(const std::string& text)
{
    bool isMissing = false;
    const auto isKind = [](const std::string& kind) { return kind == "Group" || kind == "Script"; };
    const auto whyMissing = [&](const std::vector<std::string>&) {
        isMissing = !isMissing;
        return std::string(isMissing ? "gone" : "");
    };
    return TextMender::mend(text, {isKind, whyMissing});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = "#VRML V2.0 utf8\n" + std::string(reinterpret_cast<const char*>(data), size);
    const MendedText mended = mend(text);
    expect(lines(mended.text) == lines(text), "mending keeps the lines");
    for (const MendedText::Remark& remark : mended.remarks)
        expect(remark.line > 1 && static_cast<std::ptrdiff_t>(remark.line) <= lines(text) + 1,
               "a remark has a line");

    NodeNames names;
    const ReaderText rewritten = DefLexer::rewrite(mended.text, names);
    if (!rewritten) {
        expect(rewritten.line > 0, "a problem has a line");
        return 0;
    }
    expect(lines(rewritten.text) == lines(mended.text), "rewriting keeps the lines");
    const bool hasScript = mended.text.find("Script") != std::string::npos; // whose references may go
    const bool hasStandIn = mended.text.find("ktDef") != std::string::npos; // the text's own
    if (!hasScript && !hasStandIn)
        expect(names.translate(rewritten.text) == mended.text, "names come back");

    const std::string skeleton = SceneSkeleton::of(rewritten.text);
    expect(skeleton.size() <= rewritten.text.size(), "a skeleton is no larger");
    expect(SceneSkeleton::of(skeleton) == skeleton, "a skeleton has no skeleton of its own");
    return 0;
}
