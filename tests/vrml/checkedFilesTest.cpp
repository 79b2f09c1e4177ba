// What the host reads is what its check has read, within the check's own limits.
#include "host/vrml/CheckedFiles.h"

#include "host/vrml/CheckedReading.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/LimitedRun.h"
#include "host/vrml/SceneGuard.h"
#include "tests/vrml/Gzip.h"
#include "tests/vrml/SceneFiles.h"
#include "tests/vrml/WildTexts.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <utility>

namespace kthost
{
namespace
{

std::string numbers(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += " 0";
    return text;
}

class CheckedFilesTest : public testing::Test
{
protected:
    /// What a scene that ends with this text is refused for, behind its name, where something is done after
    /// the check has read all and before the host comes to that end; empty where it is not refused.
    std::string errorAfter(const std::function<void()>& change, const std::string& end)
    {
        const std::string scene =
            folder.writeScene("scene.wrl", std::string(10000, '\n') + "Group {} Group {} Group {}\n" +
                                               std::string(10000, '\n') + end);
        SceneGuard guard(KT_SCENE_CHECK, {});
        bool isChanged = false;
        const auto changeOnce = [&](double) {
            guard.verdict();
            if (!std::exchange(isChanged, true))
                change();
        };
        const std::string error = SceneReader::read(scene, changeOnce, &guard).error;
        EXPECT_TRUE(error.empty() || error.rfind(scene, 0) == 0) << error;
        return error.empty() ? error : error.substr(scene.size());
    }

    test::SceneFolder folder;
};

/// How a check ends that sleeps in the middle of its work.
std::string reasonAfterSleep(const std::string& path, const ReadLimits& limits, double seconds)
{
    CoinLibrary::init();
    const pid_t process = fork();
    if (process == 0) {
        bool hasSlept = false;
        const auto sleepOnce = [&](const FoundFile&) {
            if (!std::exchange(hasSlept, true))
                std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
        };
        CheckedReading::read(path, limits, {[](std::uint64_t) {}, sleepOnce});
        _exit(0);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return status == 0 ? std::string() : LimitedRun::reasonOf(status, limits);
}

TEST_F(CheckedFilesTest, WaitingIsNotItsTimeUnlessItDoesNotEnd)
{
    const std::string path = folder.writeScene("scene.wrl", "Group {}");
    ReadLimits limits;
    limits.seconds = 0.5;
    EXPECT_EQ(reasonAfterSleep(path, limits, 1.0), "");
    limits.waitSeconds = 1.0;
    EXPECT_EQ(reasonAfterSleep(path, limits, 100.0), "the reader is not done with it after 1.5 s");
}

TEST_F(CheckedFilesTest, WhatChangesWhileItIsReadIsRefused)
{
    for (const bool isThere : {true, false}) {
        for (const bool isThereLater : {true, false}) {
            const auto write = [&](bool isWritten, const char* text) {
                std::filesystem::remove(folder.path("part.wrl"));
                if (isWritten)
                    folder.writeScene("part.wrl", text);
            };
            write(isThere, "Group {}");
            const char* const why = isThere ? ": part.wrl: it changed while it was read"
                                            : ": part.wrl: its check found nothing there";
            EXPECT_EQ(errorAfter([&] { write(isThereLater, "Shape {}"); }, "Inline { url \"part.wrl\" }"),
                      isThere || isThereLater ? why : "")
                << isThere << isThereLater;
        }
    }
}

TEST_F(CheckedFilesTest, AFolderThatChangesIsNoticedToo)
{
    for (const char* name : {"a", "b"}) {
        folder.makeFolder(name);
        folder.writeScene(std::string(name) + "/part.wrl", std::string("DEF ") + name + " Group {}");
    }
    const std::string link = folder.path("parts");
    std::filesystem::create_symlink("a", link);
    const auto change = [&] {
        std::filesystem::remove(link);
        std::filesystem::create_symlink("b", link);
    };
    EXPECT_EQ(errorAfter(change, "Inline { url \"parts/part.wrl\" }"),
              ": part.wrl: it changed while it was read");
}

TEST_F(CheckedFilesTest, EachLookIsComparedWithTheSameLookOfTheCheck)
{
    // The first one is read before the change, by both; the check has read the second one as the first.
    folder.writeScene("part.wrl", "Group {}");
    const std::string inlined = "Inline { url \"part.wrl\" }\n";
    folder.writeScene("scene.wrl", inlined + std::string(10000, '\n') + inlined);
    SceneGuard guard(KT_SCENE_CHECK, {});
    const auto change = [&](double part) {
        guard.verdict();
        if (part > 0.5)
            folder.writeScene("part.wrl", "Shape {}");
    };
    EXPECT_EQ(SceneReader::read(folder.path("scene.wrl"), change, &guard).error,
              folder.path("scene.wrl") + ": part.wrl: it changed while it was read");
}

TEST_F(CheckedFilesTest, AfterABadPartWhatTheCheckDidNotReadIsLeftOut)
{
    // The check leaves the numbers out, and so never comes to the second one.
    folder.writeScene("bad.wrl",
                      "Shape { geometry IndexedLineSet { coordIndex [" + numbers(20) + " 1.5 ] } }");
    folder.writeScene("good.wrl", "DEF A Group {}");
    SceneGuard guard(KT_SCENE_CHECK, {});
    const SceneReading reading = SceneReader::read(
        folder.writeScene("scene.wrl", "Inline { url [ \"bad.wrl\" \"good.wrl\" ] } DEF B Group {}"), {},
        &guard);
    ASSERT_TRUE(reading) << reading.error;
    EXPECT_EQ(reading.root->getNumChildren(), 2);
    ASSERT_EQ(reading.warnings.entries().size(), 1U);
    EXPECT_NE(reading.warnings.entries()[0].text.find("Inline left out: bad.wrl, line 2"), std::string::npos)
        << reading.warnings.entries()[0].text;
}

TEST_F(CheckedFilesTest, ACheckWaitsForItsHostAsLongAsThatLikes)
{
    // It tells of more files than a socket takes, and the host has other work for longer than the check may
    // last.
    std::string text;
    for (int i = 0; i < 500; ++i)
        text += "Inline { url \"part.wrl\" }\n";
    folder.writeScene("part.wrl", "Group {}");
    ReadLimits limits;
    limits.waitSeconds = 4.0;
    limits.seconds = 2.0;
    SceneGuard guard(KT_SCENE_CHECK, limits);
    bool hasSlept = false;
    const auto sleepOnce = [&](double) {
        if (!std::exchange(hasSlept, true))
            std::this_thread::sleep_for(std::chrono::duration<double>(limits.clockSeconds() + 0.5));
    };
    const SceneReading reading = SceneReader::read(folder.writeScene("scene.wrl", text), sleepOnce, &guard);
    EXPECT_TRUE(hasSlept);
    EXPECT_EQ(reading.error, "");
}

TEST_F(CheckedFilesTest, NothingLargeIsUnpackedBeforeItsVerdict)
{
    ReadLimits limits;
    limits.seconds = 0.3;
    limits.megabytes = 160;
    const std::string member = test::gzip(std::string(1U << 20U, ' '));
    std::string packed = test::gzip("#VRML V2.0 utf8\n" + test::explosion(16));
    for (int i = 0; i < 200; ++i)
        packed += member;
    const std::string path = folder.write("scene.wrl", packed);
    SceneGuard guard(KT_SCENE_CHECK, limits);
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss; // kilobytes
    };
    const long before = peak();

    const std::string error = SceneReader::read(path, {}, &guard).error;

    EXPECT_EQ(error.rfind(path + ": the reader ", 0), 0U) << error;
    EXPECT_LT(peak() - before, 100 << 10);
}

} // namespace
} // namespace kthost
