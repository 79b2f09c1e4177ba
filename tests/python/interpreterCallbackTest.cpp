// The plug-in's callback for the interpreter itself, without the host's bookkeeping of whom it told what.
#include "tests/support/PluginFixture.h"

#include <kt/ktPythonInit.h>
#include <kt/ktScript.h>

#include <boost/python.hpp>

namespace
{

ktPythonInit::Callback callback = nullptr;
std::vector<std::string> statements;

bool record(const char* statement)
{
    statements.emplace_back(statement);
    return true;
}

class InterpreterCallback : public kt::test::PluginFixture
{
protected:
    InterpreterCallback()
    {
        if (!Py_IsInitialized()) {
            static char home[] = KT_PYTHON_HOME;
            Py_SetPythonHome(home);
            Py_InitializeEx(0);
        }
        init();
        statements.clear();
        ktScript::setRunner(record);
    }

    ~InterpreterCallback() override
    {
        ktScript::setRunner(nullptr);
        PyDict_DelItemString(PyImport_GetModuleDict(), "ktAnimation");
        PyErr_Clear();
    }

    void SetUp() override
    {
        PluginFixture::SetUp();
        ASSERT_NE(callback, nullptr) << "the plug-in registers none";
    }

    static PyObject* loadedModule() { return PyDict_GetItemString(PyImport_GetModuleDict(), "ktAnimation"); }
};

} // namespace

// Here the test is the host: a program's own symbols come before those of its libraries.
ktPythonInit::ktPythonInit(Callback given) : _callback(given)
{
    callback = given;
}

ktPythonInit::~ktPythonInit() = default;

TEST_F(InterpreterCallback, AnEndBeforeAnyStartIsOnlyTold)
{
    testing::internal::CaptureStdout();
    callback(true);

    EXPECT_EQ(testing::internal::GetCapturedStdout(), "pythonInit: destroy ktAnimation!\n");
    EXPECT_TRUE(statements.empty());
    EXPECT_EQ(loadedModule(), nullptr);
}

TEST_F(InterpreterCallback, ASecondStartInARowMakesNoSecondModuleAndImportsAgain)
{
    const std::vector<std::string> twice{"import ktAnimation", "from ktAnimation import *",
                                         "import ktAnimation", "from ktAnimation import *"};
    callback(false);
    ASSERT_NE(loadedModule(), nullptr);
    const boost::python::handle<> made(PyObject_GetAttrString(loadedModule(), "startAnimation"));

    callback(false);

    EXPECT_EQ(statements, twice);
    const boost::python::handle<> present(PyObject_GetAttrString(loadedModule(), "startAnimation"));
    EXPECT_EQ(present.get(), made.get()) << "a second module would have functions of its own";
}
