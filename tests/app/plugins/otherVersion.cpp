// A plug-in for another host, which has made a module and registered a callback when it is loaded; its
// initPlugin() must never be called.
#include <kt/ktController.h>
#include <kt/ktModuleBase.h>

#include <cstdlib>

#ifdef KT_LOOKS_FOR_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

class Early : public ktModuleBase
{
public:
    Early() : ktModuleBase("Early", "Early", 0x10, nullptr)
    {
        ktController::addCB("early", [](ktMessage&) {});
    }
};

/// Nobody destroys it.
const ktModuleBase* makeEarly()
{
#ifdef KT_LOOKS_FOR_LEAKS
    const __lsan::ScopedDisabler keptOnPurpose;
#endif
    return new Early;
}

const ktModuleBase* const module = makeEarly();

} // namespace

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
