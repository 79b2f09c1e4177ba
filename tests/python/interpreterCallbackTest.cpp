// The plug-in's callback for the interpreter itself, without the host's bookkeeping of whom it told what.
#include "tests/python/BarePython.h"

#include <kt/ktPythonInit.h>

namespace
{

ktPythonInit::Callback callback = nullptr;

class InterpreterCallback : public kt::test::BarePython
{
protected:
    void SetUp() override
    {
        PluginFixture::SetUp();
        ASSERT_NE(callback, nullptr) << "the plug-in registers none";
    }
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
    EXPECT_TRUE(statements().empty());
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

    EXPECT_EQ(statements(), twice);
    const boost::python::handle<> present(PyObject_GetAttrString(loadedModule(), "startAnimation"));
    EXPECT_EQ(present.get(), made.get()) << "a second module would have functions of its own";
}
