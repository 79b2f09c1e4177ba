#include <kt/ktController.h>

#include "kt/CallbackList_p.h"

#include <kt/ktFailures.h>
#include <kt/ktMessage.h>
#include <kt/ktModuleBase.h>

#include <map>
#include <string>

namespace
{

struct State
{
    QMainWindow* mainWindow = nullptr;
    QKTDockWindowManager* docks = nullptr;
    double simulationTime = 0.0;
    std::map<std::string, CallbackList<ktController::MessageCB>> callbacks;
};

// Never destroyed: plug-ins take their callbacks back while the process ends, in an order of their own.
State& state()
{
    static State* const instance = new State;
    return *instance;
}

bool survivesDelivery(ktModuleBase& module, ktMessage& message)
{
    const std::string where =
        module.moduleName().toStdString() + ": message " + std::to_string(message.id()) + " failed";
    return ktFailures::survived([&] { return where; }, [&] { module.receivedMessage(message); });
}

} // namespace

QMainWindow* ktController::getMainWindow()
{
    return state().mainWindow;
}

QKTDockWindowManager* ktController::getDockWindowManager()
{
    return state().docks;
}

double ktController::getSimulationTime()
{
    return state().simulationTime;
}

void ktController::addCB(const char* name, MessageCB callback)
{
    if (name && callback)
        state().callbacks[name].add(callback);
}

void ktController::subCB(const char* name, MessageCB callback)
{
    if (!name)
        return;
    const auto found = state().callbacks.find(name);
    if (found != state().callbacks.end())
        found->second.remove(callback);
}

int ktController::sendMessage(const char* name, ktMessage& message)
{
    const auto found = state().callbacks.find(name ? name : "");
    return found == state().callbacks.end() ? 0 : found->second.call(name, message);
}

int ktController::deliver(ktMessage& message)
{
    int failed = 0;
    ktModuleBase::forEach([&](ktModuleBase& module) {
        if (module.wantsMessage(message.id()) && !survivesDelivery(module, message))
            ++failed;
    });
    return failed;
}

std::vector<std::string> ktController::messageNames()
{
    std::vector<std::string> names;
    for (const auto& [name, callbacks] : state().callbacks) {
        if (!callbacks.isEmpty())
            names.push_back(name);
    }
    return names;
}

int ktController::countCallbacks()
{
    int count = 0;
    for (const auto& [name, callbacks] : state().callbacks)
        count += callbacks.count();
    return count;
}

void ktController::dropCallbacks(const std::function<bool(MessageCB)>& isGone)
{
    for (auto& [name, callbacks] : state().callbacks)
        callbacks.removeIf(isGone);
}

void ktController::setMainWindow(QMainWindow* window, QKTDockWindowManager* docks)
{
    state().mainWindow = window;
    state().docks = docks;
}

void ktController::setSimulationTime(double seconds)
{
    state().simulationTime = seconds;
}
