// Whatever a project holds under the names of the plug-in's settings, the plug-in takes what it can of it,
// and what it saves is what it loads again.
#include "fuzz/AnyValue.h"
#include "fuzz/Bytes.h"
#include "fuzz/Expect.h"
#include "fuzz/PluginRig.h"

#include <kt/ktFileIO.h>

#include <QString>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace
{

using kt::fuzz::Bytes;
using kt::fuzz::expect;
using kt::fuzz::PluginRig;
using Strings = std::vector<std::string>;

/// The text as it comes back: it ends at a zero byte, and what is no UTF-8 is replaced.
std::string kept(const std::string& text)
{
    return QString::fromUtf8(text.c_str()).toUtf8().constData();
}

/// Whole records only, of each name the first.
Strings keptOf(const Strings& strings)
{
    Strings result;
    std::set<std::string> names;
    for (std::size_t i = 0; i + 4 <= strings.size(); i += 4) {
        if (!names.insert(kept(strings[i])).second)
            continue;
        for (std::size_t part = 0; part < 4; ++part)
            result.push_back(kept(strings[i + part]));
    }
    return result;
}

/// Each reading takes a byte order mark off a text's beginning, so two of them become one.
bool hasMarks(const Strings& strings)
{
    return std::any_of(strings.begin(), strings.end(),
                       [](const std::string& text) { return text.rfind("\xEF\xBB\xBF", 0) == 0; });
}

void load(PluginRig& rig, const boost::any& settings)
{
    const Strings before = PluginRig::saved();
    rig.load(settings);
    const auto* const strings = boost::any_cast<Strings>(&settings);
    expect(PluginRig::saved() == (strings ? keptOf(*strings) : before), "what can be taken is taken");
    rig.check();
}

void saveAndLoad(PluginRig& rig)
{
    const Strings saved = PluginRig::saved();
    if (hasMarks(saved))
        return;
    load(rig, saved);
    expect(PluginRig::saved() == saved, "what was saved is loaded");
}

/// The project as any hand may have left it.
void deliverAny(PluginRig& rig, Bytes& bytes)
{
    ktFileIO::getProject().set("_loading", kt::fuzz::anyValue(bytes), false);
    ktFileIO::getProject().set("Animations", kt::fuzz::anyValue(bytes));
    PluginRig::deliver(8192);
    rig.check();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    PluginRig& rig = PluginRig::instance();
    rig.reset();
    rig.addSensor("Door");
    rig.addSensor(bytes.text());
    load(rig, kt::fuzz::anyValue(bytes));
    for (int row = 0; row < 3; ++row) {
        rig.select(row); // fills the frames
        rig.check();
    }
    saveAndLoad(rig);
    deliverAny(rig, bytes);
    PluginRig::deliver(32768);
    rig.check();
    saveAndLoad(rig);
    return 0;
}
