#pragma once

#include "kt/Blame_p.h"

#include <kt/ktFailures.h>

#include <algorithm>
#include <string>
#include <vector>

/// Function pointers in order of registration, each once. A call goes over a copy, so callbacks may register
/// and take back callbacks; one that was taken back by an earlier callback of the same call is not called any
/// more.
template <class Callback>
class CallbackList
{
public:
    bool isEmpty() const { return _callbacks.empty(); }
    int count() const { return static_cast<int>(_callbacks.size()); }

    void add(Callback callback)
    {
        if (callback && !contains(callback))
            _callbacks.push_back(callback);
    }

    void remove(Callback callback)
    {
        _callbacks.erase(std::remove(_callbacks.begin(), _callbacks.end(), callback), _callbacks.end());
    }

    /// Takes out each for which `isGone` answers true.
    template <class Test>
    void removeIf(Test&& isGone)
    {
        _callbacks.erase(std::remove_if(_callbacks.begin(), _callbacks.end(), isGone), _callbacks.end());
    }

    /// Calls all and answers how many; `what` names the occasion where an exception has to be told.
    template <class... Arguments>
    int call(const char* what, Arguments&&... arguments) const
    {
        int called = 0;
        const std::vector<Callback> present = _callbacks;
        for (Callback callback : present) {
            if (!contains(callback))
                continue;
            ++called;
            ktFailures::survived([&] { return failureOf(what, libraryOf(callback)); },
                                 [&] { callback(arguments...); });
        }
        return called;
    }

private:
    bool contains(Callback callback) const
    {
        return std::find(_callbacks.begin(), _callbacks.end(), callback) != _callbacks.end();
    }

    std::vector<Callback> _callbacks;
};
