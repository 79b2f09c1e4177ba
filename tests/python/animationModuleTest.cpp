// The plug-in's Python module in the host's interpreter.
#include "tests/python/ScriptRun.h"

namespace
{

class AnimationModule : public kt::test::ScriptRun
{
};

// Prints the fields of the sensor "Door" that tell its state.
const char* const showDoor = R"(
import ktHost
def show():
    door = [s for s in ktHost.sensors() if s["name"] == "Door"][0]
    print door["active"], door["stop"], door["time"], door["startTime"], door["fraction"]
)";

} // namespace

TEST_F(AnimationModule, IsThereByNameAndItsFunctionsWithoutPrefix)
{
    EXPECT_EQ(printed("print sorted(n for n in dir(ktAnimation) if not n.startswith('_'))\n"
                      "print startAnimation is ktAnimation.startAnimation\n"
                      "import sys; print sys.modules['ktAnimation'] is ktAnimation\n"),
              (QStringList{"['continueAnimation', 'getAnimations', 'pauseAnimation', 'resetAnimation', "
                           "'startAnimation', 'stopAnimation', 'toggleAnimation']",
                           "True", "True"}));
}

TEST_F(AnimationModule, IsThereTooWhenTheInterpreterIsOlderThanThePlugin)
{
    const auto run = kt::test::runHeadless(
        {"--plugin", KT_EAGER_PLUGIN, "--plugin", KT_PLUGIN_FILE, kt::test::exampleScene("door.wrl"),
         "--send", "eagerStatement=Door", "--script", script("print early, getAnimations()")});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines(),
              (QStringList{"['Door', 'Fan']", "7 ['Door', 'Fan']", "pythonInit: destroy ktAnimation!"}))
        << run.errors.toStdString();
}

TEST_F(AnimationModule, DocstringsAreTheTextsAlone)
{
    EXPECT_EQ(printed(R"(
def text(title):
    return title + "\n\n@param name: The name of the animation.\n\n@type name: string"
assert getAnimations.__doc__ == ("Returns all animations.\n\n@return: The names of all the animations.\n\n"
                                 "@rtype: list of strings"), repr(getAnimations.__doc__)
for name, title in (("start", "Starts"), ("stop", "Stops"), ("pause", "Pauses"), ("continue", "Continues"),
                    ("reset", "Resets"), ("toggle", "Toggles")):
    found = getattr(ktAnimation, name + "Animation").__doc__
    assert found == text(title + " an animation."), repr(found)
print "all"
)"),
              QStringList{"all"});
}

TEST_F(AnimationModule, ListsTheRegistryInItsOrderAsStr)
{
    EXPECT_EQ(printed("names = getAnimations()\nprint names, type(names), type(names[0])"),
              QStringList{"['Door', 'Fan'] <type 'list'> <type 'str'>"});
}

TEST_F(AnimationModule, TheOrderOfTheRegistryIsNotThatOfTheAlphabet)
{
    const QString scene =
        script("#VRML V2.0 utf8\nDEF Zoo TimeSensor {}\nDEF Ant TimeSensor {}\n", "scene.wrl");
    const QString list = script("print getAnimations()");

    const auto run = kt::test::runHeadless({scene, "--script", list});

    EXPECT_EQ(run.lines().value(0), "['Zoo', 'Ant']");
}

TEST_F(AnimationModule, WithoutASceneTheListIsEmpty)
{
    const auto run = kt::test::runHeadless({"--script", script("print getAnimations()")});

    EXPECT_EQ(run.lines().value(0), "[]");
}

TEST_F(AnimationModule, StartAndStopWriteTheFieldsAndAnswerNone)
{
    EXPECT_EQ(printed((std::string(showDoor) + R"(
ktHost.advance(2)
print startAnimation("Door")
show()
ktHost.advance(0.25)
print stopAnimation("Door")
show()
)")
                          .c_str()),
              (QStringList{"None", "True False 2.0 2.0 0.0", "None", "False False 2.25 2.0 0.25"}));
}

TEST_F(AnimationModule, PauseContinueToggleAndResetDoWhatTheirNamesSay)
{
    EXPECT_EQ(
        printed((std::string(showDoor) + R"(
startAnimation("Door")
ktHost.advance(0.25)
pauseAnimation("Door"); show()
ktHost.advance(1)
continueAnimation("Door"); show()
toggleAnimation("Door"); show()
toggleAnimation("Door"); show()
resetAnimation("Door"); show()
)")
                    .c_str()),
        (QStringList{"False False 0.25 0.0 0.25", "True False 1.25 1.0 0.25", "False False 1.25 1.0 0.25",
                     "True False 1.25 1.0 0.25", "False True 1.25 1.25 0.0"}));
}

TEST_F(AnimationModule, TheNameMayBeGivenByKeyword)
{
    // A step apart, so that each leaves a state of its own.
    EXPECT_EQ(
        printed((std::string(showDoor) + R"(
for function in (startAnimation, stopAnimation, continueAnimation, pauseAnimation, toggleAnimation, resetAnimation):
    assert function(name="Door") is None
    show()
    ktHost.advance(0.25)
)")
                    .c_str()),
        (QStringList{"True False 0.0 0.0 0.0", "False False 0.25 0.0 0.25", "True False 0.5 0.25 0.25",
                     "False False 0.75 0.25 0.5", "True False 1.0 0.5 0.5", "False True 1.25 1.25 0.0"}));
}

TEST_F(AnimationModule, ANameThatNobodyHasIsPassedOver)
{
    EXPECT_EQ(
        printed(
            (std::string(showDoor) + "print startAnimation('Nobody'), startAnimation('')\nshow()\n").c_str()),
        (QStringList{"None None", "False False 0.0 0.0 0.0"}));
}

TEST_F(AnimationModule, WrongArgumentsAreRefusedAsBoostPythonDoes)
{
    EXPECT_EQ(
        printed((std::string(showDoor) + R"(
calls = (lambda: startAnimation(), lambda: startAnimation("Door", "Fan"), lambda: startAnimation(1),
         lambda: startAnimation(u"Door"), lambda: startAnimation(nom="Door"), lambda: startAnimation(["Door"]),
         lambda: getAnimations("Door"))
for call in calls:
    try:
        call()
        print "no exception"
    except TypeError as error:
        print type(error).__module__ + "." + type(error).__name__
show()
)")
                    .c_str()),
        (QStringList{"Boost.Python.ArgumentError", "Boost.Python.ArgumentError", "Boost.Python.ArgumentError",
                     "Boost.Python.ArgumentError", "Boost.Python.ArgumentError", "Boost.Python.ArgumentError",
                     "Boost.Python.ArgumentError", "False False 0.0 0.0 0.0"}));
}

TEST_F(AnimationModule, NoneIsNoName)
{
    const QString refusal = "the name of an animation must be a string, not None";

    EXPECT_EQ(printed(R"(
for function in (startAnimation, stopAnimation, pauseAnimation, continueAnimation, resetAnimation, toggleAnimation):
    try:
        function(None)
    except TypeError as error:
        print error
)"),
              (QStringList{refusal, refusal, refusal, refusal, refusal, refusal}));
}

TEST_F(AnimationModule, NamesComeAsLatin1AndGoAsTheBytesThatTheyAre)
{
    const QString scene = script("#VRML V2.0 utf8\nDEF T\xc3\xbcr TimeSensor {}\n", "scene.wrl");
    const QString drive = script(R"(
import ktHost
print getAnimations()
def active(): return [s["active"] for s in ktHost.sensors()]
startAnimation("T\xfcr"); print active()
startAnimation("T\xc3\xbcr"); print active()
)");

    const auto run = kt::test::runHeadless({scene, "--script", drive});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines().mid(0, 3), (QStringList{R"(['T\xfcr'])", "[False]", "[True]"}));
}

TEST_F(AnimationModule, EverySensorOfTheNameIsDriven)
{
    const QString scene =
        script("#VRML V2.0 utf8\nDEF A TimeSensor {}\nGroup { children DEF A TimeSensor {} }\n"
               "DEF B TimeSensor {}\n",
               "scene.wrl");
    const QString drive = script("import ktHost\nstartAnimation('A')\n"
                                 "print [s['active'] for s in ktHost.sensors()]\n");

    const auto run = kt::test::runHeadless({scene, "--script", drive});

    EXPECT_EQ(run.lines().value(0), "[True, True, False]") << run.errors.toStdString();
}
