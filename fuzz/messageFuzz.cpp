// Messages with attributes of any names and types, keys and edits of the scene between them, in any order:
// the plug-in drives the sensors that a message names, and takes what it cannot use for nothing.
#include "fuzz/AnyValue.h"
#include "fuzz/Bytes.h"
#include "fuzz/Expect.h"
#include "fuzz/PluginRig.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktOSGWidget.h>

#include <algorithm>
#include <string>

namespace
{

using kt::fuzz::Bytes;
using kt::fuzz::expect;
using kt::fuzz::PluginRig;
using Moment = PluginRig::Moment;

/// More than these only repeat.
constexpr int mostSteps = 64;

const char* const messages[] = {"animationStart", "animationStop",     "animationToggle",
                                "animationPause", "animationContinue", "animationReset"};

std::string attributeName(Bytes& bytes)
{
    const char* const names[] = {"animation-name", "_loading", "Animations", "", "animation-Name"};
    const std::uint8_t choice = bytes.byte();
    return choice % 8 < std::size(names) ? names[choice % 8] : bytes.text();
}

void setAttributes(ktMessage& message, Bytes& bytes)
{
    for (std::size_t left = bytes.below(4); left > 0; --left) {
        const std::string name = attributeName(bytes);
        message.set(name, kt::fuzz::anyValue(bytes), bytes.byte() % 2 != 0);
    }
}

Moment running(const Moment& before, double elapsed)
{
    const double now = ktController::getSimulationTime();
    return {before.name, now, now - elapsed, before.fraction, true, false};
}

Moment halted(Moment moment)
{
    moment.isActive = false;
    return moment;
}

/// What the message makes of a sensor of the name.
Moment after(const std::string& message, const Moment& before)
{
    const double now = ktController::getSimulationTime();
    if (message == "animationStart")
        return running(before, 0.0);
    if (message == "animationReset")
        return {before.name, now, now, 0.0F, false, true};
    if (message == "animationStop" || message == "animationPause")
        return halted(before);
    if (before.isActive)
        return message == "animationToggle" ? halted(before) : before;
    return running(before, before.time - before.startTime);
}

void sendByName(PluginRig& rig, Bytes& bytes)
{
    ktMessage message(bytes.number<std::uint32_t>());
    const std::string which = messages[bytes.below(std::size(messages))];
    if (bytes.byte() % 2 != 0)
        message.set("animation-name", bytes.text());
    setAttributes(message, bytes);

    std::vector<Moment> expected = rig.moments();
    const auto* const name = boost::any_cast<std::string>(&message.get("animation-name"));
    for (Moment& moment : expected) {
        if (name && !name->empty() && moment.name == name->c_str())
            moment = after(which, moment);
    }
    ktController::sendMessage(which.c_str(), message);
    expect(rig.moments() == expected, "the sensors of the name, and no others");
}

void sendById(Bytes& bytes)
{
    const std::uint32_t ids[] = {16, 8192, 32768, 0, 8192 | 16, 0xFFFFFFFF, 8192, 8192};
    const std::size_t which = bytes.below(std::size(ids) + 1);
    const std::uint32_t id = which < std::size(ids) ? ids[which] : bytes.number<std::uint32_t>();
    if (bytes.byte() % 2 != 0)
        ktFileIO::getProject().set("_loading", bytes.byte() % 2 != 0, false);
    setAttributes(ktFileIO::getProject(), bytes);
    PluginRig::deliver(id);
}

void editScene(PluginRig& rig, Bytes& bytes)
{
    const std::size_t what = bytes.below(3);
    const std::size_t place = bytes.below(std::max<std::size_t>(rig.countNodes(), 1));
    if (what == 0 || rig.countNodes() == 0)
        rig.addSensor(bytes.text());
    else if (what == 1)
        rig.renameNode(place, bytes.text());
    else
        rig.removeNode(place);
}

void step(PluginRig& rig, Bytes& bytes)
{
    switch (bytes.below(7)) {
    case 0:
    case 1:
        sendByName(rig, bytes);
        break;
    case 2:
        sendById(bytes);
        break;
    case 3:
        editScene(rig, bytes);
        break;
    case 4: {
        const int key = bytes.byte();
        ktOSGWidget::pressKey(key, 0, static_cast<int>(static_cast<unsigned>(bytes.byte()) << 24U), nullptr);
        break;
    }
    case 5:
        rig.passTime(bytes.byte() * 0.125);
        break;
    default:
        rig.select(bytes.byte());
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    PluginRig& rig = PluginRig::instance();
    rig.reset();
    for (const char* name : {"Door", "Door", "T\xC3\xBCr", ""})
        rig.addSensor(name);
    PluginRig::deliver(32768);
    for (int steps = 0; steps < mostSteps && !bytes.isEmpty(); ++steps) {
        step(rig, bytes);
        rig.check();
    }
    return 0;
}
