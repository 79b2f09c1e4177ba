// A plug-in that leaves a passing note in the project, and runs statements as early as it can, and again when
// it is told: --send eagerStatement=ANIMATION
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktScript.h>

extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    ktScript::run("early = 7");
    ktFileIO::getProject().set("passing", 1, false);
    ktFileIO::getProject().set("lasting", 2);
    ktController::addCB("eagerStatement", [](ktMessage&) { ktScript::run("print getAnimations()"); });
}
