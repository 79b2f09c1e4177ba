// A plug-in without initPlugin().
extern "C" __attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}
