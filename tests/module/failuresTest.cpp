// What happens where the host throws.
#include "module/entry.h"
#include "tests/support/HostCalls.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>

#include <QWidget>

#include <dlfcn.h>

#include <stdexcept>

namespace
{

/// Decoding this text throws, wherever it is done.
const char* const undecodable = "undecodable";

} // namespace

QString QString::fromUtf8_helper(const char* text, int size)
{
    if (text && std::string(text) == undecodable)
        throw std::runtime_error(undecodable);
    using Helper = QString (*)(const char*, int);
    return reinterpret_cast<Helper>(dlsym(RTLD_NEXT, "_ZN7QString15fromUtf8_helperEPKci"))(text, size);
}

namespace
{

using kt::test::HostCalls;
using Lines = std::vector<std::string>;
using Strings = std::vector<std::string>;

const Lines oneComplaint{"error: ktAnimation::receivedMessage : An unknown exception occurred!"};

class FailuresTest : public kt::test::ModuleFixture
{
protected:
    FailuresTest() { HostCalls::reset(); }
    ~FailuresTest() override { HostCalls::reset(); }

    void receive(std::uint32_t id)
    {
        ktMessage message(id);
        module().receivedMessage(message);
    }
};

TEST_F(FailuresTest, AFailedScanIsLoggedInOneLine)
{
    addRecord("Door");
    HostCalls::throwAt("getRootNode");

    EXPECT_NO_THROW(receive(32768));

    EXPECT_EQ(log.lines(), oneComplaint);
    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(FailuresTest, AScanCalledDirectlyLetsTheExceptionOut)
{
    HostCalls::throwAt("getRootNode");

    EXPECT_THROW(module().refreshAnimations(), std::runtime_error);
}

TEST_F(FailuresTest, AFailedProjectIsLoggedInOneLine)
{
    HostCalls::throwAt("getProject");

    EXPECT_NO_THROW(receive(8192));

    EXPECT_EQ(log.lines(), oneComplaint);
}

TEST_F(FailuresTest, WhateverIsThrownIsCaught)
{
    HostCalls::onCall() = [](const std::string&) { throw 17; };

    EXPECT_NO_THROW(receive(32768));

    EXPECT_EQ(log.lines(), oneComplaint);
}

TEST_F(FailuresTest, AFailedLoadLeavesTheRecordsLoadedSoFar)
{
    addRecord("Old");
    ktFileIO::getProject().set("_loading", true, false);
    ktFileIO::getProject().set("Animations",
                               Strings{"Door", "front", "Shift D", "", "Fan", undecodable, "", ""});

    receive(8192);

    EXPECT_EQ(log.lines(), oneComplaint);
    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(module().findAnimation("Door")->startKey, 'D');
}

TEST_F(FailuresTest, AFailedLoadForgetsTheSelectedRecordThatItDestroyed)
{
    addRecord("Old");
    module()._current = &module()._animations.front();
    ktFileIO::getProject().set("_loading", true, false);
    ktFileIO::getProject().set("Animations", Strings{undecodable, "", "", ""});

    receive(8192);

    EXPECT_EQ(module()._current, nullptr);
}

TEST_F(FailuresTest, AfterAFailureTheNextMessageIsHandled)
{
    addTimeSensor("Door");
    HostCalls::throwAt("getRootNode");
    receive(32768);
    HostCalls::reset();

    receive(32768);

    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(FailuresTest, APlaybackCallbackLetsTheExceptionOut)
{
    ktMessage message;
    message.set("animation-name", std::string("Door"));
    HostCalls::throwAt("findNodes Door");

    for (const auto callback :
         {ktAnimation::animStartCB, ktAnimation::animStopCB, ktAnimation::animToggleCB,
          ktAnimation::animPauseCB, ktAnimation::animContinueCB, ktAnimation::animResetCB})
        EXPECT_THROW(callback(message), std::runtime_error);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(FailuresTest, AFailedConstructionLetsTheExceptionOutAndTheBaseGo)
{
    destroyModule();
    for (const char* call :
         {"getMainWindow", "addCB animationStart", "addCB animationReset", "addMGLWPressKeyCB"}) {
        HostCalls::throwAt(call);
        EXPECT_THROW(kt::test::OpenAnimation(), std::runtime_error) << call;
        EXPECT_TRUE(ktModuleBase::modules().empty()) << call;
    }
    HostCalls::reset();
    const kt::test::OpenAnimation takesThemBack;
}

TEST_F(FailuresTest, AFailedInitPluginCanBeTriedAgainAndSucceedsOnce)
{
    destroyModule();
    HostCalls::throwAt("addMGLWPressKeyCB");
    EXPECT_THROW(initPlugin(), std::runtime_error);
    EXPECT_TRUE(ktModuleBase::modules().empty());
    HostCalls::reset();

    initPlugin();
    ASSERT_EQ(ktModuleBase::modules().size(), 1u);
    const ktModuleBase* made = ktModuleBase::modules()[0];
    HostCalls::reset();
    initPlugin();

    EXPECT_EQ(ktModuleBase::modules(), std::vector<ktModuleBase*>{const_cast<ktModuleBase*>(made)});
    EXPECT_TRUE(HostCalls::lines().empty());
}

using FailuresDeathTest = FailuresTest;

TEST_F(FailuresDeathTest, AnExceptionOutOfTheDestructorEndsTheProcess)
{
    for (const char* call : {"subMGLWPressKeyCB", "subCB animationStart", "subCB animationReset"}) {
        EXPECT_EXIT(
            {
                HostCalls::throwAt(call);
                destroyModule();
            },
            testing::KilledBySignal(SIGABRT), "terminate called")
            << call;
    }
}

} // namespace
