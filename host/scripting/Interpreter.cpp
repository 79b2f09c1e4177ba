#include "host/scripting/Interpreter.h"

#include "host/scripting/RunningScript.h"
#include "host/scripting/ScriptStreams.h"
#include "host/scripting/hostModule.h"
#include "host/scripting/outcome.h"
#include "host/scripting/values.h"

#include <kt/ktLog.h>
#include <kt/ktPythonInit.h>
#include <kt/ktScript.h>

#include <boost/python.hpp>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace kthost
{
namespace
{

namespace py = boost::python;

Interpreter* current = nullptr;
bool isAnnouncing = false; ///< The callbacks of ktPythonInit are being told, whose statements tell nobody.

PyObject* namesOfScripts()
{
    return PyModule_GetDict(PyImport_AddModule("__main__"));
}

py::object scriptNames()
{
    return py::object(py::handle<>(py::borrowed(namesOfScripts())));
}

/// What scripts have made goes; what makes the namespace one stays.
void forgetScriptNames()
{
    PyObject* names = namesOfScripts();
    const py::handle<> present(PyDict_Keys(names));
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(present.get()); ++i) {
        PyObject* name = PyList_GET_ITEM(present.get(), i);
        const bool isPythons = PyString_Check(name) && std::strncmp(PyString_AS_STRING(name), "__", 2) == 0;
        if (!isPythons && PyDict_DelItem(names, name) != 0)
            PyErr_Clear(); // a key with a will of its own, or the end of another took it along
    }
}

void startPython(const QString& home)
{
    if (Py_IsInitialized())
        return;
    if (!QFile::exists(QDir(home).filePath("lib/python2.7/os.py")))
        throw std::runtime_error("Python: its standard library is not in " +
                                 QFile::encodeName(home).toStdString());
    // Python keeps the pointer.
    static auto* const kept = new QByteArray(QFile::encodeName(QDir(home).absolutePath()));
    Py_SetPythonHome(kept->data());
    Py_IgnoreEnvironmentFlag = 1; // the user's settings are for a Python of another version
    Py_NoUserSiteDirectory = 1;
    Py_InitializeEx(0);
    Py_InspectFlag = 1; // a sys.excepthook that calls sys.exit() fails, instead of ending the process
    RunningScript::prepare();
    registerStringListConverter();
    ScriptStreams::install();
    makeHostModule();
}

bool runForModules(const char* statement)
{
    current->announce();
    const ScriptOutcome outcome = current->runStatement(statement);
    return outcome.kind == ScriptOutcome::Done;
}

/// Runs what scripts registered for the end. Python's own end would do so, and more that Boost.Python cannot
/// bear.
void runExitFunctions()
{
    PyObject* function = PySys_GetObject(const_cast<char*>("exitfunc"));
    if (!function)
        return;
    const py::object call{py::handle<>(py::borrowed(function))};
    PySys_SetObject(const_cast<char*>("exitfunc"), nullptr);
    run([&] { call(); });
}

/// The standard library's completer of names, without the line editor of terminals that it would bring along.
py::object completerModule()
{
    py::object modules = py::import("sys").attr("modules");
    const bool hasEditor = modules.attr("has_key")("readline");
    if (!hasEditor)
        modules["readline"] = py::object(); // keeps it from being imported
    const py::object completer = py::import("rlcompleter");
    if (!hasEditor)
        modules.attr("pop")("readline");
    return completer;
}

/// sys.argv, __file__ and, for as long as it lives, the first entry of sys.path. The former two stay, as with
/// Python's own command line: functions that the script leaves behind may ask for them.
class FileSettings
{
public:
    FileSettings(const QString& file, const std::vector<std::string>& arguments)
        : _folder(QFile::encodeName(QFileInfo(file).absolutePath()).toStdString())
    {
        const std::string name = QFile::encodeName(file).toStdString();
        py::list words;
        words.append(py::str(name.data(), name.size()));
        for (const std::string& argument : arguments)
            words.append(py::str(argument.data(), argument.size()));
        py::object sys = py::import("sys");
        sys.attr("argv") = words;
        sys.attr("path").attr("insert")(0, py::str(_folder.data(), _folder.size()));
        scriptNames()["__file__"] = py::str(name.data(), name.size());
    }

    ~FileSettings()
    {
        const PythonErrorKeeper scripts; // its outcome
        try {
            const py::str folder(_folder.data(), _folder.size());
            const py::object path = py::import("sys").attr("path");
            if (path.contains(folder))
                path.attr("remove")(folder);
        } catch (const py::error_already_set&) {
            PyErr_Clear(); // the script made something else of sys.path
        }
    }

    FileSettings(const FileSettings&) = delete;
    FileSettings& operator=(const FileSettings&) = delete;

private:
    std::string _folder;
};

} // namespace

Interpreter::Interpreter(ScriptHost& host, const QString& home)
{
    try {
        startPython(home);
        setScriptHost(&host);
    } catch (const py::error_already_set&) {
        throw std::runtime_error("Python: it could not be started: " + takePythonError().why);
    }
    current = this;
    ktScript::setRunner(runForModules);
}

Interpreter::~Interpreter()
{
    // Scripts first, which may use the modules to the last.
    runExitFunctions();
    run(forgetScriptNames);
    isAnnouncing = true;
    ktPythonInit::notify(true);
    isAnnouncing = false;
    reportLeftError("the end of a module");
    run([] { py::import("gc").attr("collect")(); });
    ScriptStreams::finishLines();
    setListener({});
    setIdleCall({});
    setScriptHost(nullptr);
    ktScript::setRunner(nullptr);
    current = nullptr;
}

void Interpreter::announce()
{
    if (isAnnouncing)
        return;
    isAnnouncing = true;
    ktPythonInit::notify(false);
    isAnnouncing = false;
    reportLeftError("the start of a module");
}

ScriptOutcome Interpreter::runFile(const QString& file, const std::vector<std::string>& arguments)
{
    const QByteArray name = QFile::encodeName(file);
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(name.constData(), "rb"), &std::fclose);
    if (!opened) {
        ScriptOutcome outcome;
        outcome.kind = ScriptOutcome::Failed;
        outcome.why = "it could not be opened";
        return outcome;
    }
    return run([&] {
        const FileSettings settings(file, arguments);
        PyObject* names = namesOfScripts();
        PyObject* result = PyRun_FileEx(opened.release(), name.constData(), Py_file_input, names, names, 1);
        Py_XDECREF(result);
    });
}

ScriptOutcome Interpreter::runStatement(const char* statement)
{
    return run([&] {
        PyObject* names = namesOfScripts();
        PyObject* result = PyRun_String(statement, Py_file_input, names, names);
        Py_XDECREF(result);
    });
}

bool Interpreter::runTyped(const std::string& text, ScriptOutcome& outcome)
{
    bool isWhole = true;
    outcome = run([&] {
        const py::object code = py::import("code").attr("compile_command")(py::str(text.data(), text.size()),
                                                                           "<console>", "single");
        isWhole = !code.is_none();
        if (!isWhole)
            return;
        PyObject* names = namesOfScripts();
        PyObject* result = PyEval_EvalCode(reinterpret_cast<PyCodeObject*>(code.ptr()), names, names);
        Py_XDECREF(result);
    });
    return isWhole;
}

QStringList Interpreter::completions(const QString& text)
{
    QStringList found;
    try {
        const QByteArray bytes = text.toUtf8();
        const py::object completer = completerModule().attr("Completer")(scriptNames());
        for (int i = 0;; ++i) {
            const py::object name = completer.attr("complete")(
                py::str(bytes.constData(), static_cast<std::size_t>(bytes.size())), i);
            if (name.is_none())
                break;
            found << QString::fromUtf8(QByteArray::fromStdString(toBytes(name, "a name")));
        }
    } catch (const py::error_already_set&) {
        PyErr_Clear(); // what stands before the dot cannot be looked at
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

bool Interpreter::isRunning() const
{
    return RunningScript::isAnyRunning();
}

void Interpreter::interrupt()
{
    RunningScript::interrupt();
}

void Interpreter::setIdleCall(std::function<void()> call)
{
    RunningScript::setIdleCall(std::move(call));
}

void Interpreter::setListener(Listener listener)
{
    ScriptStreams::setListener(std::move(listener));
}

} // namespace kthost
