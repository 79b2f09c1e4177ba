// The plug-in in interpreters that are not the host's: started by the test, and a Python program of its own.
#include "tests/python/BarePython.h"

#include <kt/ktPythonInit.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace
{

class BareInterpreter : public kt::test::BarePython
{
protected:
    /// `repr` of the expression's value, or of the exception.
    static std::string value(const char* expression)
    {
        const boost::python::handle<> names(PyDict_New());
        PyObject* found = PyRun_String(expression, Py_eval_input, PyEval_GetBuiltins(), names.get());
        if (!found) {
            PyErr_Print();
            return "an exception";
        }
        const boost::python::handle<> result(found);
        const boost::python::handle<> text(PyObject_Repr(found));
        return PyString_AsString(text.get());
    }
};

/// What is printed while it lives.
class Printed
{
public:
    Printed() { testing::internal::CaptureStdout(); }
    std::string text() const { return testing::internal::GetCapturedStdout(); }
};

const std::vector<std::string> imports{"import ktAnimation", "from ktAnimation import *"};

} // namespace

// Here the leak check sees who allocates through the standard library only where it walks the calls the slow
// way.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

TEST_F(BareInterpreter, TheInitFunctionMakesTheModule)
{
    const auto initModule = entry<void (*)()>("initktAnimation");
    ASSERT_NE(initModule, nullptr);

    initModule();

    EXPECT_NE(loadedModule(), nullptr);
    EXPECT_EQ(value("__import__('ktAnimation').getAnimations.__doc__.splitlines()[0]"),
              "'Returns all animations.'");
    EXPECT_EQ(value("__import__('ktAnimation').startAnimation(name='Nobody')"), "None");
    EXPECT_TRUE(statements().empty());
}

TEST_F(BareInterpreter, WhenItIsReadyTheModuleIsMadeAndImported)
{
    EXPECT_EQ(loadedModule(), nullptr);

    ktPythonInit::notify(false);

    EXPECT_NE(loadedModule(), nullptr);
    EXPECT_EQ(statements(), imports);
    ktPythonInit::notify(true);
}

TEST_F(BareInterpreter, ASecondStartOnlyImportsAgain)
{
    ktPythonInit::notify(false);
    PyObject* made = PyObject_GetAttrString(loadedModule(), "startAnimation");
    const Printed printed;

    ktPythonInit::notify(true);
    EXPECT_EQ(printed.text(), "pythonInit: destroy ktAnimation!\n");
    EXPECT_NE(loadedModule(), nullptr) << "the end changes nothing";
    EXPECT_EQ(statements(), imports);

    ktPythonInit::notify(false);
    std::vector<std::string> twice = imports;
    twice.insert(twice.end(), imports.begin(), imports.end());
    EXPECT_EQ(statements(), twice);
    PyObject* present = PyObject_GetAttrString(loadedModule(), "startAnimation");
    EXPECT_EQ(present, made) << "a second module would have functions of its own";
    Py_XDECREF(present);
    Py_XDECREF(made);
    const Printed farewell;
    ktPythonInit::notify(true);
    farewell.text();
}

TEST_F(BareInterpreter, ScriptsDriveTheScene)
{
    kt::test::RecordingSensor& door = scene.addTimeSensor("Door");
    entry<void (*)()>("initktAnimation")();

    EXPECT_EQ(value("__import__('ktAnimation').startAnimation('Door')"), "None");

    EXPECT_TRUE(door.isActive());
}

TEST_F(BareInterpreter, TheListNeedsTheHostsConverter)
{
    entry<void (*)()>("initktAnimation")();

    testing::internal::CaptureStderr();
    EXPECT_EQ(value("__import__('ktAnimation').getAnimations()"), "an exception");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("TypeError"), std::string::npos);
}

TEST_F(BareInterpreter, FunctionsHoldOnToNothing)
{
    entry<void (*)()>("initktAnimation")();
    const std::string references = "__import__('sys').getrefcount(None)";
    const std::string before = value(references.c_str());

    value("[__import__('ktAnimation').startAnimation(n) for n in ('a',) * 10000] and None");

    EXPECT_NEAR(std::stoi(value(references.c_str())), std::stoi(before), 10);
}

TEST(BarePython, FindsTheModuleInThePluginsFile)
{
    const QString python = QStringLiteral(KT_PYTHON_PROGRAM);
    if (KT_IS_SANITIZED || !QFile::exists(python))
        GTEST_SKIP() << "there is no program of this Python 2.7, or none for sanitized libraries";
    QTemporaryDir folder;
    ASSERT_TRUE(QFile::link(KT_PLUGIN_FILE, folder.filePath("ktAnimation.so")));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PYTHONHOME", KT_PYTHON_HOME);
    environment.insert("PYTHONPATH", folder.path());
    process.setProcessEnvironment(environment);

    process.start(python,
                  {"-c", "import ktAnimation\n"
                         "print ktAnimation.startAnimation.__doc__.splitlines()[0]\n"
                         "for call in (ktAnimation.getAnimations, lambda: ktAnimation.stopAnimation('a')):\n"
                         "    try: call()\n"
                         "    except RuntimeError as error: print error\n"});
    ASSERT_TRUE(process.waitForFinished());

    const QByteArray refusal = "there is no animation module: no host has called initPlugin()\n";
    EXPECT_EQ(process.readAllStandardOutput(), "Starts an animation.\n" + refusal + refusal)
        << process.readAllStandardError().toStdString();
}
