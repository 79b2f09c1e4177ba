#include "host/scripting/RunningScript.h"

#include <boost/python.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <memory>
#include <mutex>
#include <thread>

namespace kthost
{
namespace
{

constexpr std::chrono::milliseconds idleInterval{20};

using SignalHandler = void (*)(int);

int depth = 0;
SignalHandler interruptsScript = SIG_DFL; ///< Python's own.
SignalHandler outsideOfScripts = SIG_DFL;

std::function<void()>& idleCall()
{
    static auto* const instance = new std::function<void()>;
    return *instance;
}

std::atomic<bool> isIdleCallPending{false};

/// Python calls it between two instructions of the script.
int callIdle(void*)
{
    isIdleCallPending = false;
    if (depth > 0 && idleCall())
        idleCall()();
    return 0;
}

/// Asks Python for the idle call again and again, from a thread of its own.
class Watcher
{
public:
    Watcher() : _thread([this] { watch(); }) {}

    ~Watcher()
    {
        {
            const std::lock_guard<std::mutex> lock(_mutex);
            _isEnding = true;
        }
        _wake.notify_one();
        _thread.join();
    }

private:
    void watch()
    {
        std::unique_lock<std::mutex> lock(_mutex);
        while (!_wake.wait_for(lock, idleInterval, [this] { return _isEnding; })) {
            if (!isIdleCallPending.exchange(true) && Py_AddPendingCall(callIdle, nullptr) != 0)
                isIdleCallPending = false;
        }
    }

    std::mutex _mutex;
    std::condition_variable _wake;
    bool _isEnding = false;
    std::thread _thread;
};

std::unique_ptr<Watcher> watcher;

/// An interrupt that came as the last script ended is not for the next one.
void forgetInterrupts()
{
    if (PyErr_CheckSignals() != 0)
        PyErr_Clear();
}

} // namespace

RunningScript::RunningScript()
{
    if (depth++ > 0)
        return;
    forgetInterrupts();
    outsideOfScripts = std::signal(SIGINT, interruptsScript);
    if (outsideOfScripts == SIG_IGN) // started in the background: stays so
        std::signal(SIGINT, SIG_IGN);
    if (idleCall())
        watcher = std::make_unique<Watcher>();
}

RunningScript::~RunningScript()
{
    if (--depth > 0)
        return;
    watcher.reset();
    std::signal(SIGINT, outsideOfScripts);
}

bool RunningScript::isAnyRunning()
{
    return depth > 0;
}

void RunningScript::interrupt()
{
    if (depth > 0)
        PyErr_SetInterrupt();
}

void RunningScript::setIdleCall(std::function<void()> call)
{
    idleCall() = std::move(call);
}

void RunningScript::prepare()
{
    const SignalHandler before = std::signal(SIGINT, SIG_DFL);
    const boost::python::object module =
        boost::python::import("signal"); // takes Ctrl-C, where nobody has it yet
    interruptsScript = std::signal(SIGINT, before);
}

} // namespace kthost
