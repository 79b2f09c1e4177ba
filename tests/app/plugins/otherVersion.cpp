// A plug-in for another host; its initPlugin() must never be called.
#include <cstdlib>

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "9.7";
}

__attribute__((visibility("default"))) void initPlugin()
{
    std::abort();
}
}
