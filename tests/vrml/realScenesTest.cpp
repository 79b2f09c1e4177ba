// What comes out of real files: the time sensors with their names, or the reason why a file is refused.
#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kthost
{
namespace
{

using Names = std::vector<std::string>;

struct Expected
{
    std::string file;
    Names sensors;

    friend void PrintTo(const Expected& expected, std::ostream* out) { *out << expected.file; }
};

class RealScenesTest : public testing::TestWithParam<Expected>
{
};

TEST_P(RealScenesTest, GivesEachTimeSensorOnceUnderItsName)
{
    if (!test::haveRealScenes())
        GTEST_SKIP() << "no scenes at " KT_SCENES_DIR;
    const test::BuiltScene scene(test::realScene(GetParam().file));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), GetParam().sensors);
    EXPECT_EQ(scene.nodes.sensors.size(), GetParam().sensors.size());
}

INSTANTIATE_TEST_SUITE_P(
    Files, RealScenesTest,
    testing::Values(
        Expected{"01-spinning-box/spinning_box.wrl", {"TS"}},
        Expected{"02-guided-tour/vaneyck.wrl", {"toertijd", "toertijd2"}},
        Expected{"03-max-chapel/pyopenglchapel.wrl",
                 {"Spot01-TIMER", "Floor-TIMER", "MainArch-TIMER", "Arch01-TIMER", "Arch02-TIMER",
                  "Arch03-TIMER", "Arch04-TIMER", "Arch05-TIMER", "TableTop-TIMER", "TableLeg01-TIMER",
                  "TableLeg04-TIMER", "TableLeg02-TIMER", "TableLeg03-TIMER", "WoodFloor-TIMER"}},
        Expected{"04-switching-animations/switching_animations.wrl",
                 {"TimeSensor0_2", "TimeSensor2_3", "TimeSensor3_7", "TimeSensor0_1", "TimeSensor4_5",
                  "TimeSensor1_5", "TimeSensor0_4", "TimeSensor2_6", "TimeSensor4_6", "TimeSensor1_3",
                  "TimeSensor5_7", "TimeSensor_6_7"}},
        Expected{"05-proto-instances/7.wrl", Names(6, "TIMER")},
        Expected{"06-proto-shared-use/6.wrl", {"TIMER"}},
        Expected{"07-externproto/externproto.wrl", {"Timer", "TIMER"}},
        Expected{"09-inlines/geist.wrl", {"Time", "Time", "enterWorldTimeSensor", "enterWorldTimeSensor"}},
        Expected{"12-stopwatch-script/simple_stopwatch.wrl", {"TimeSensor1"}},
        Expected{"13-motion-capture-walk/transform_human_motioncapture_walk.wrl", {"ZEIT"}},
        Expected{"14-unnamed/empty_timesensor.wrl", {""}}, Expected{"15-gzip-torch/torch.wrl", {"_0"}},
        Expected{"18-coordinate-morph/coordmorph_ifs.wrl", {"TS"}},
        Expected{"19-camera-flight/camera_orient.wrl", {"Clock"}},
        Expected{"20-touch-trigger/touch_trigger.wrl", {"TimeSensor1"}},
        Expected{"21-gz-road/index.wrl.gz",
                 {"Time", "enterWorldTimeSensor", "Time_45", "Time_48", "Time_53", "Time",
                  "enterWorldTimeSensor", "enterWorldTimeSensor"}},
        Expected{"22-utf8-bom/chinese1-bom.wrl", {}},
        Expected{"made/names-utf8.wrl",
                 {"Öffnen_Tür", "扉を開く", "窓を開く", "Дверь", "été", "emoji_😀", "plain"}}));

struct Refused
{
    std::string file;
    std::string reason; ///< What follows the file's name.

    friend void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.file; }
};

class RefusedScenesTest : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedScenesTest, GivesTheReadersWordsWithTheLine)
{
    if (!test::haveRealScenes())
        GTEST_SKIP() << "no scenes at " KT_SCENES_DIR;
    const std::string path = test::realScene(GetParam().file);
    const SceneReading reading = SceneReader::read(path);
    EXPECT_FALSE(reading);
    EXPECT_EQ(reading.error, path + GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedScenesTest,
                         testing::Values(Refused{"16-broken-house/house.wrl",
                                                 ", line 1899: Unknown field \"DEF\" in \"VRMLTransform\""},
                                         Refused{"made/truncated.wrl", ", line 8: Premature end of file"}));

} // namespace
} // namespace kthost
