#pragma once

#include "host/app/FrameLoop.h"

#include <string>
#include <vector>

namespace kthost
{

/// The names of the registered animations, in registry order, as UTF-8. Asked for as a save asks for them:
/// the module writes its settings into the project, four strings an animation, the name first. Empty without
/// such a module.
std::vector<std::string> registeredAnimations();

/// One sensor as a JSON object without line ends: name, active, stop, time, startTime, fraction,
/// cycleInterval, loop. Numbers have the digits that give the same number back; one that JSON cannot say
/// (infinite, not a number) is null.
std::string sensorAsJson(const SceneSensor& sensor);

} // namespace kthost
