#pragma once

#include "tests/support/PluginFixture.h"

#include <kt/ktScript.h>

#include <boost/python.hpp>

#include <string>
#include <vector>

namespace kt::test
{

/// The plug-in is in this process, and so is Python, for good; nothing of a host's scripting is.
class BarePython : public PluginFixture
{
protected:
    BarePython()
    {
        if (!Py_IsInitialized()) {
            static char home[] = KT_PYTHON_HOME;
            Py_SetPythonHome(home);
            Py_InitializeEx(0);
        }
        init();
        statements().clear();
        ktScript::setRunner(record);
    }

    ~BarePython() override
    {
        ktScript::setRunner(nullptr);
        PyDict_DelItemString(PyImport_GetModuleDict(), "ktAnimation");
        PyErr_Clear();
    }

    /// What the plug-in had the host run.
    static std::vector<std::string>& statements()
    {
        static std::vector<std::string> all;
        return all;
    }

    /// Borrowed; null where there is none.
    static PyObject* loadedModule() { return PyDict_GetItemString(PyImport_GetModuleDict(), "ktAnimation"); }

private:
    static bool record(const char* statement)
    {
        statements().emplace_back(statement);
        return true;
    }
};

} // namespace kt::test
