// The host's Python module.
#include "tests/python/ScriptRun.h"

#include <QJsonDocument>

namespace
{

class HostModule : public kt::test::ScriptRun
{
};

} // namespace

TEST_F(HostModule, OpensScenesAndSaysWhyNot)
{
    EXPECT_EQ(printed("import ktHost, sys\nktHost.open(sys.argv[1])\nprint len(getAnimations()) > 2\n"
                      "try: ktHost.open('/no/such/scene.wrl')\nexcept ktHost.Error as error: print error\n"
                      "print len(getAnimations()) > 2\n",
                      {kt::test::exampleScene("courtyard.wrl")}),
              (QStringList{"True", "/no/such/scene.wrl: No such file or directory", "True"}));
}

TEST_F(HostModule, FileNamesMayBeUnicode)
{
    EXPECT_EQ(printed("import ktHost, sys, os\nktHost.save(sys.argv[1].decode('utf-8'))\nprint "
                      "os.path.exists(sys.argv[1])\n"
                      "for bad in ('', 'a\\0b', 1, None):\n"
                      "    try: ktHost.open(bad)\n    except (TypeError, ValueError) as error: print "
                      "type(error).__name__\n",
                      {folder.filePath(QString::fromUtf8("T\xc3\xbcr.ktproj"))}),
              (QStringList{"True", "ValueError", "ValueError", "TypeError", "TypeError"}));
}

TEST_F(HostModule, WhatIsSavedIsThereWhenItIsOpened)
{
    const QString project = folder.filePath("a.ktproj");

    EXPECT_EQ(printed("import ktHost, sys\nktHost.save(sys.argv[1])\nktHost.open(sys.argv[2])\n"
                      "ktHost.open(sys.argv[1])\nprint getAnimations()\n",
                      {project, kt::test::exampleScene("courtyard.wrl")}),
              QStringList{"['Door', 'Fan']"});
}

TEST_F(HostModule, TimePassesInStepsAndByNothingElse)
{
    EXPECT_EQ(printed("import ktHost\nprint ktHost.time()\nktHost.advance(1.5)\nprint ktHost.time()\n"
                      "ktHost.advance(0.1, fps=3)\nktHost.advance(seconds=0)\nprint ktHost.time()\n"
                      "for bad in ((-1,), (float('nan'),), (float('inf'),), (1, -1), (1, 1e9)):\n"
                      "    try: ktHost.advance(*bad)\n    except ValueError: print 'refused'\n"),
              (QStringList{"0.0", "1.5", "1.6", "refused", "refused", "refused", "refused", "refused"}));
}

TEST_F(HostModule, StepsHaveTheRateOfTheCommandLineWhereNoneIsGiven)
{
    const QString frames = folder.filePath("frames");
    const QString path = script("import ktHost, os, sys\nktHost.advance(0.5)\nktHost.advance(0.5, 4)\n"
                                "print sorted(os.listdir(sys.argv[1]))\n");

    const auto run = kt::test::runHeadless({kt::test::exampleScene("door.wrl"), "--fps", "2", "--size",
                                            "16x16", "--frames", frames, "--script", path, "--", frames});

    EXPECT_EQ(run.lines().value(0), "['frame-00001.png', 'frame-00002.png', 'frame-00003.png']")
        << run.errors.toStdString();
}

TEST_F(HostModule, SensorsHaveTheFieldsOfTheDump)
{
    const QString path =
        script("import ktHost, json\nfor s in ktHost.sensors(): print json.dumps(s, sort_keys=True)\n");

    const auto run =
        kt::test::runHeadless({kt::test::exampleScene("door.wrl"), "--send", "animationStart=Door", "--run",
                               "0.5", "--dump", "--script", path});

    ASSERT_EQ(run.lines().size(), 5) << run.errors.toStdString();
    for (int i : {0, 1}) {
        EXPECT_EQ(QJsonDocument::fromJson(run.lines()[i].toUtf8()),
                  QJsonDocument::fromJson(run.lines()[i + 2].toUtf8()))
            << run.output.toStdString();
    }
}

TEST_F(HostModule, SendsMessagesAndCountsWhoListens)
{
    EXPECT_EQ(printed("import ktHost\n"
                      "def active(): return [s['active'] for s in ktHost.sensors()]\n"
                      "print ktHost.sendMessage('animationStart', animation='Door'), active()\n"
                      "print ktHost.sendMessage('animationStop', **{'animation-name': 'Door'}), active()\n"
                      "print ktHost.sendMessage('nobody', a=True, b=1, c=1.5, d='x', e=['x', u'y'])\n"
                      "for bad in (None, {}, [1], 2 ** 40, 2 ** 80):\n"
                      "    try: ktHost.sendMessage('nobody', a=bad)\n"
                      "    except (TypeError, OverflowError) as error: print type(error).__name__\n"
                      "for bad in ((), ('a', 'b'), (1,)):\n"
                      "    try: ktHost.sendMessage(*bad)\n    except TypeError: print 'refused'\n"),
              (QStringList{"1 [True, True]", "1 [False, True]", "0", "TypeError", "TypeError", "TypeError",
                           "OverflowError", "OverflowError", "refused", "refused", "refused"}));
}

TEST_F(HostModule, TheProjectHoldsWhatModulesWouldSave)
{
    EXPECT_EQ(printed("import ktHost\nprint ktHost.project()\n"),
              QStringList{"{'Animations': ['Door', '', '', '', 'Fan', '', '', '']}"});
}

TEST_F(HostModule, TheProjectHoldsNothingThatIsNotSaved)
{
    const auto run = kt::test::runHeadless(
        {"--plugin", KT_EAGER_PLUGIN, "--script", script("import ktHost\nprint ktHost.project()\n")});

    EXPECT_EQ(run.lines(), QStringList{"{'lasting': 2}"}) << run.errors.toStdString();
}

TEST_F(HostModule, SelectsNodesByTheirNames)
{
    EXPECT_EQ(
        printed("import ktHost\nprint ktHost.selection()\nprint ktHost.select('Door'), ktHost.selection()\n"
                "print ktHost.select(['Fan', u'Door', 'Nobody']), ktHost.selection()\n"
                "print ktHost.select([]), ktHost.selection()\n"
                "try: ktHost.select(1)\nexcept TypeError: print 'refused'\n"),
        (QStringList{"[]", "1 ['Door']", "2 ['Door', 'Fan']", "0 []", "refused"}));
}

TEST_F(HostModule, PicturesThatCannotBeMadeAreErrorsOfTheHost)
{
    EXPECT_EQ(
        printed(
            "import ktHost\n"
            "try: ktHost.screenshot('/no/such/folder/a.png')\nexcept ktHost.Error as error: print 'Error'\n"
            "for bad in ((0, 1), (1, 99999), (1,), 7, ('a', 'b')):\n"
            "    try: ktHost.screenshot('a.png', bad)\n"
            "    except (TypeError, ValueError) as error: print type(error).__name__\n"),
        (QStringList{"Error", "ValueError", "ValueError", "TypeError", "TypeError", "TypeError"}));
}

TEST_F(HostModule, EachFunctionSaysWhatItDoes)
{
    EXPECT_EQ(
        printed("import ktHost\n"
                "for name in dir(ktHost):\n"
                "    if not name.startswith('_') and name != 'Error':\n"
                "        assert getattr(ktHost, name).__doc__.strip()[0].isupper(), name\n"
                "print [n for n in dir(ktHost) if not n.startswith('_')]\n"),
        QStringList{
            "['Error', 'advance', 'open', 'project', 'quit', 'save', 'screenshot', 'select', 'selection', "
            "'sendMessage', 'sensors', 'time']"});
}
