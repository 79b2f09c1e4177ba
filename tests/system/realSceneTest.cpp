// Scenes from the wild, through the built host and plug-in. They lie outside the project; without them
// nothing is tested.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QFileInfo>

using kt::test::HostRun;
using kt::test::runHeadless;

namespace
{

QString scene(const char* name)
{
    return QStringLiteral(KT_SCENES_DIR "/") + QString::fromUtf8(name);
}

struct Listed
{
    const char* file;
    QStringList names;
};

void PrintTo(const Listed& listed, std::ostream* out)
{
    *out << listed.file;
}

class ListedScene : public testing::TestWithParam<Listed>
{
};

struct Refused
{
    const char* file;
    const char* where; ///< Part of the line that tells where it is wrong.
};

void PrintTo(const Refused& refused, std::ostream* out)
{
    *out << refused.file;
}

class RefusedScene : public testing::TestWithParam<Refused>
{
};

} // namespace

TEST_P(ListedScene, ShowsItsAnimationsOncePerNameInDocumentOrder)
{
    if (!QFileInfo::exists(scene(GetParam().file)))
        GTEST_SKIP() << "the folder of real scenes is not here";

    const HostRun run = runHeadless({scene(GetParam().file), "--list"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines(), GetParam().names) << run.output.toStdString();
}

TEST_P(RefusedScene, IsRefusedInOneLineWithItsPlaceAndStatusThree)
{
    if (!QFileInfo::exists(scene(GetParam().file)))
        GTEST_SKIP() << "the folder of real scenes is not here";

    const HostRun run = runHeadless({scene(GetParam().file), "--list"});

    EXPECT_EQ(run.status, 3);
    EXPECT_TRUE(run.output.isEmpty()) << run.output.toStdString();
    ASSERT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().startsWith("kthost: ")) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().contains(GetParam().where)) << run.errors.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Real, ListedScene,
    testing::Values(
        Listed{"01-spinning-box/spinning_box.wrl", {"TS"}},
        Listed{"02-guided-tour/vaneyck.wrl", {"toertijd", "toertijd2"}},
        Listed{"03-max-chapel/pyopenglchapel.wrl",
               {"Spot01-TIMER", "Floor-TIMER", "MainArch-TIMER", "Arch01-TIMER", "Arch02-TIMER",
                "Arch03-TIMER", "Arch04-TIMER", "Arch05-TIMER", "TableTop-TIMER", "TableLeg01-TIMER",
                "TableLeg04-TIMER", "TableLeg02-TIMER", "TableLeg03-TIMER", "WoodFloor-TIMER"}},
        Listed{"04-switching-animations/switching_animations.wrl",
               {"TimeSensor0_2", "TimeSensor2_3", "TimeSensor3_7", "TimeSensor0_1", "TimeSensor4_5",
                "TimeSensor1_5", "TimeSensor0_4", "TimeSensor2_6", "TimeSensor4_6", "TimeSensor1_3",
                "TimeSensor5_7", "TimeSensor_6_7"}},
        Listed{"05-proto-instances/7.wrl", {"TIMER"}}, Listed{"06-proto-shared-use/6.wrl", {"TIMER"}},
        Listed{"07-externproto/externproto.wrl", {"Timer", "TIMER"}},
        Listed{"08-externproto-urn/Untitled.wrl", {"TimeSensor1"}},
        Listed{"09-inlines/geist.wrl", {"Time", "enterWorldTimeSensor"}},
        Listed{"10-recursive-inline/recurse_inline.wrl", {}},
        Listed{"12-stopwatch-script/simple_stopwatch.wrl", {"TimeSensor1"}},
        Listed{"13-motion-capture-walk/transform_human_motioncapture_walk.wrl", {"ZEIT"}},
        Listed{"14-unnamed/empty_timesensor.wrl", {"TimeSensor"}}, Listed{"15-gzip-torch/torch.wrl", {"_0"}},
        Listed{"17-x3d-statements/index.wrl",
               {"Time_8", "enterWorldTimeSensor", "Time_17", "Time_24", "Time_29", "Time_34", "Time_40"}},
        Listed{"18-coordinate-morph/coordmorph_ifs.wrl", {"TS"}},
        Listed{"19-camera-flight/camera_orient.wrl", {"Clock"}},
        Listed{"20-touch-trigger/touch_trigger.wrl", {"TimeSensor1"}},
        Listed{"21-gz-road/index.wrl.gz", {"Time", "enterWorldTimeSensor", "Time_45", "Time_48", "Time_53"}},
        Listed{"22-utf8-bom/chinese1-bom.wrl", {}},
        Listed{"made/names-utf8.wrl",
               {"Öffnen_Tür", "扉を開く", "窓を開く", "Дверь", "été", "emoji_😀", "plain"}}),
    [](const auto& scene) { return "Scene" + std::to_string(scene.index); });

INSTANTIATE_TEST_SUITE_P(Real, RefusedScene,
                         testing::Values(Refused{"16-broken-house/house.wrl", "house.wrl, line 1899: "},
                                         Refused{"made/truncated.wrl", "truncated.wrl, line 8: "},
                                         Refused{"made/use-cycle.wrl",
                                                 "use-cycle.wrl: 'G' stands inside itself"}),
                         [](const auto& scene) { return "Scene" + std::to_string(scene.index); });
