#pragma once

#include <kt/Export.h>

#include <functional>

/// Registers, for as long as it lives, a callback that brings a Python module into the host's interpreter.
/// Made as a static object of a plug-in, so that it is there from the load of the library on.
class KT_EXPORT ktPythonInit
{
public:
    /// Called with false when the interpreter is ready, before any script runs, and with true when it is
    /// about to end, before the library is unloaded. A host may start its interpreter long after the library
    /// was loaded, or never; then the callback is never called. One that is made after that start is called
    /// when the host notifies the next time.
    using Callback = void (*)(bool destroy);

    /// A null callback is never called.
    explicit ktPythonInit(Callback callback);
    ~ktPythonInit();

    ktPythonInit(const ktPythonInit&) = delete;
    ktPythonInit& operator=(const ktPythonInit&) = delete;

    /// For the host: calls every living callback, in order of construction, that has not been told of this
    /// state yet; to be called with false after the interpreter's start and after each later load of
    /// libraries. An exception of one is logged, see ktFailures, and keeps none of the others from
    /// their turn.
    static void notify(bool destroy);

    /// For the host: callbacks that `isGone` answers true for are never called again, as those of a library
    /// that failed.
    static void dropCallbacks(const std::function<bool(Callback)>& isGone);

private:
    Callback _callback;
    bool _isReady = false; ///< The callback was told of a ready interpreter, and not yet of its end.
};
