// A plug-in that fails while it tells its version.
#include <stdexcept>

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    throw std::runtime_error("no version");
}

__attribute__((visibility("default"))) void initPlugin() {}
}
