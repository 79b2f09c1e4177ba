// A plug-in whose module fails in every call of the host.
#include <kt/ktController.h>
#include <kt/ktModuleBase.h>

#include <stdexcept>

namespace
{

class Failing : public ktModuleBase
{
public:
    Failing() : ktModuleBase("Failing", "Failing", 0x8010, nullptr)
    {
        ktController::addCB("fail", [](ktMessage&) { throw std::runtime_error("callback"); });
    }

    void init() override { throw std::runtime_error("init"); }
    void update() override { throw std::runtime_error("update"); }
    void loop() override { throw 42; }
    void receivedMessage(ktMessage&) override { throw std::runtime_error("message"); }
};

} // namespace

extern "C" {

__attribute__((visibility("default"))) const char* getPluginVersion()
{
    return "10.0";
}

__attribute__((visibility("default"))) void initPlugin()
{
    static Failing module;
}
}
