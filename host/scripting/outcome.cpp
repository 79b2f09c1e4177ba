#include "host/scripting/outcome.h"

#include "host/scripting/RunningScript.h"
#include "host/scripting/ScriptStreams.h"

#include <kt/ktLog.h>

#include <boost/python.hpp>

#include <QString>

namespace kthost
{
namespace
{

namespace py = boost::python;

constexpr int lowByte = 0xff; // all that the system keeps of an exit status

/// `str(value)` as bytes, or the UTF-8 of `unicode(value)` where it is none; what cannot be said so is left
/// out.
std::string bytesOf(PyObject* value)
{
    PyObject* text = PyObject_Str(value);
    if (!text) {
        PyErr_Clear();
        PyObject* unicode = PyObject_Unicode(value);
        text = unicode ? PyUnicode_AsUTF8String(unicode) : nullptr;
        Py_XDECREF(unicode);
    }
    std::string bytes;
    if (text)
        bytes.assign(PyString_AS_STRING(text), static_cast<std::size_t>(PyString_GET_SIZE(text)));
    Py_XDECREF(text);
    PyErr_Clear();
    return bytes;
}

/// On one line.
std::string textOf(PyObject* value)
{
    return value ? QString::fromStdString(bytesOf(value)).simplified().toStdString() : std::string();
}

std::string describe(PyObject* type, PyObject* value)
{
    std::string name = PyExceptionClass_Check(type) ? PyExceptionClass_Name(type) : "an exception";
    const std::size_t dot = name.rfind('.');
    if (dot != std::string::npos && name.compare(0, dot, "exceptions") == 0)
        name.erase(0, dot + 1);
    const std::string text = textOf(value);
    return text.empty() ? name : name + ": " + text;
}

/// On what is sys.stderr now. PySys_WriteStderr() would cut long texts off.
void printError(const std::string& text)
{
    PyObject* errors = PySys_GetObject(const_cast<char*>("stderr"));
    PyObject* bytes = PyString_FromStringAndSize(text.data(), static_cast<Py_ssize_t>(text.size()));
    if (errors && bytes)
        PyFile_WriteObject(bytes, errors, Py_PRINT_RAW);
    Py_XDECREF(bytes);
    PyErr_Clear();
}

/// Of SystemExit: nothing is 0, a number itself, anything else is printed and 1; as in any Python.
int exitStatus(PyObject* exception)
{
    PyObject* code = PyObject_GetAttrString(exception, "code");
    if (!code)
        PyErr_Clear();
    int status = 0;
    if (code && (PyInt_Check(code) || PyLong_Check(code))) {
        status = static_cast<int>(PyInt_AsUnsignedLongMask(code) & lowByte);
    } else if (code && code != Py_None) {
        printError(bytesOf(code) + '\n');
        status = 1;
    }
    Py_XDECREF(code);
    return status;
}

} // namespace

ScriptOutcome takePythonError()
{
    ScriptOutcome outcome;
    if (!PyErr_Occurred())
        return outcome;
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    if (PyErr_GivenExceptionMatches(type, PyExc_SystemExit)) {
        outcome.kind = ScriptOutcome::Exit;
        outcome.status = exitStatus(value);
        Py_XDECREF(type);
        Py_XDECREF(value);
        Py_XDECREF(traceback);
        return outcome;
    }
    const bool isInterrupt = PyErr_GivenExceptionMatches(type, PyExc_KeyboardInterrupt) != 0;
    outcome.kind = isInterrupt ? ScriptOutcome::Interrupted : ScriptOutcome::Failed;
    outcome.why = describe(type, value);
    PyErr_Restore(type, value, traceback);
    PyErr_PrintEx(0);
    return outcome;
}

ScriptOutcome run(const std::function<void()>& call)
{
    ScriptOutcome outcome;
    std::string failure;
    {
        const RunningScript running;
        try {
            call();
        } catch (const py::error_already_set&) {
            // It is the present exception now.
        } catch (const std::exception& error) {
            failure = error.what();
        } catch (...) {
            failure = "an unknown exception";
        }
        outcome = takePythonError();
        if (Py_FlushLine() != 0) // after a print that ended with a comma
            PyErr_Clear();
    }
    if (outcome.kind == ScriptOutcome::Done && !failure.empty()) {
        outcome.kind = ScriptOutcome::Failed;
        outcome.why = failure;
    }
    ScriptStreams::finishLines();
    return outcome;
}

void reportLeftError(const char* what)
{
    if (!PyErr_Occurred())
        return;
    const ScriptOutcome outcome = takePythonError();
    ktLog::error("%s: %s", what, outcome.why.empty() ? "it asked the program to end" : outcome.why.c_str());
}

} // namespace kthost
