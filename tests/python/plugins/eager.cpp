// A plug-in that runs statements as early as it can, and again when it is told: --send
// eagerStatement=ANIMATION
#include <kt/ktController.h>
#include <kt/ktScript.h>

extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

extern "C" __attribute__((visibility("default"))) void initPlugin()
{
    ktScript::run("early = 7");
    ktController::addCB("eagerStatement", [](ktMessage&) { ktScript::run("print getAnimations()"); });
}
