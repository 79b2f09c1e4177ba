// A plug-in that fails while it starts.
#include <stdexcept>

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    throw std::runtime_error("no luck\ntoday");
}
}
