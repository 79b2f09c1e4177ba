#pragma once

/// What the host looks up in the library by name. GUI thread.
extern "C" {

/// The version of the host that the plug-in fits.
__attribute__((visibility("default"))) const char* getPluginVersion();

/// Makes the module object, once; it lives until the library is unloaded or the process ends.
/// What a host call throws meanwhile comes out, and the next call tries again.
__attribute__((visibility("default"))) void initPlugin();
}
