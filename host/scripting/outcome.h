#pragma once

#include "host/scripting/Interpreter.h"

#include <boost/python/detail/wrap_python.hpp>

#include <functional>

namespace kthost
{

/// Runs `call` as a script. It may throw or leave a Python exception, which decides the outcome; its
/// traceback goes to the scripts' error stream.
ScriptOutcome run(const std::function<void()>& call);

/// Prints and clears the present Python exception; Done where there is none.
ScriptOutcome takePythonError();

/// The same for one that `what` left behind, whose caller cannot make use of it.
void reportLeftError(const char* what);

/// Puts the present Python exception aside for as long as it lives.
class PythonErrorKeeper
{
public:
    PythonErrorKeeper() { PyErr_Fetch(&_type, &_value, &_traceback); }
    ~PythonErrorKeeper() { PyErr_Restore(_type, _value, _traceback); }

    PythonErrorKeeper(const PythonErrorKeeper&) = delete;
    PythonErrorKeeper& operator=(const PythonErrorKeeper&) = delete;

private:
    PyObject* _type = nullptr;
    PyObject* _value = nullptr;
    PyObject* _traceback = nullptr;
};

} // namespace kthost
