// A plug-in without getPluginVersion().
extern "C" __attribute__((visibility("default"))) void initPlugin() {}
