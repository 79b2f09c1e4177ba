#include "module/entry.h"

#include "module/ktAnimation.h"

const char* getPluginVersion()
{
    return "10.0";
}

void initPlugin()
{
    static ktAnimation module;
}
