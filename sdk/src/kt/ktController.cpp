#include <kt/ktController.h>

#include "kt/Blame_p.h"
#include "kt/CallbackList_p.h"

#include <kt/ktLog.h>
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

void deliverTo(ktModuleBase& module, ktMessage& message)
{
    try {
        module.receivedMessage(message);
    } catch (const std::exception& error) {
        ktLog::error("%s: message %u failed: %s", qPrintable(module.moduleName()), message.id(),
                     inOneLine(error.what()).c_str());
    } catch (...) {
        ktLog::error("%s: message %u failed with an unknown exception", qPrintable(module.moduleName()),
                     message.id());
    }
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

void ktController::deliver(ktMessage& message)
{
    ktModuleBase::forEach([&](ktModuleBase& module) {
        if (module.wantsMessage(message.id()))
            deliverTo(module, message);
    });
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
