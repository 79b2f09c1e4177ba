#include "host/app/PluginLoader.h"
#include "host/app/FrameLoop.h"

#include <kt/ktController.h>
#include <kt/ktLog.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <qkt/QKTDockWindowManager.h>

#include <gtest/gtest.h>

#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QTemporaryDir>

#include <dlfcn.h>

using namespace kthost;

namespace
{

std::vector<std::string> logged;

QString badPlugin(const char* name)
{
    return QStringLiteral(KT_BUILD_DIR "/tests/plugins/lib%1.so").arg(name);
}

class PluginLoaderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        logged.clear();
        ktLog::setSink([](ktLog::Level, const char* line) { logged.emplace_back(line); });
        ktController::setMainWindow(&window, &docks);
    }

    void TearDown() override
    {
        loader.unloadAll();
        ktController::setMainWindow(nullptr, nullptr);
        ktLog::setSink(nullptr);
    }

    /// Refused in one line, and nothing of it is left.
    void expectRefusal(const QString& file, const char* word)
    {
        const QString why = loader.load(file);
        EXPECT_TRUE(why.contains(QLatin1String(word))) << why.toStdString();
        EXPECT_FALSE(why.contains(QLatin1Char('\n')));
        EXPECT_EQ(loader.count(), 0);
        EXPECT_TRUE(ktModuleBase::modules().empty());
        EXPECT_EQ(ktController::countCallbacks(), 0);
    }

    QMainWindow window;
    QKTDockWindowManager docks{&window};
    PluginLoader loader;
};

} // namespace

TEST_F(PluginLoaderTest, LoadsThePluginAndUnloadsItWithoutATrace)
{
    ASSERT_EQ(loader.load(KT_PLUGIN_FILE), "");
    EXPECT_EQ(ktModuleBase::modules().size(), 1U);
    EXPECT_EQ(ktController::countCallbacks(), 6);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 1);
    EXPECT_EQ(window.findChildren<QDockWidget*>().size(), 1);

    loader.unloadAll();

    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    EXPECT_EQ(dlopen(KT_PLUGIN_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr) << "the library is still in memory";
}

TEST_F(PluginLoaderTest, LoadsItAgainAfterUnloading)
{
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(loader.load(KT_PLUGIN_FILE), "");
        EXPECT_EQ(ktController::countCallbacks(), 6);
        loader.unloadAll();
        EXPECT_EQ(ktController::countCallbacks(), 0);
    }
}

TEST_F(PluginLoaderTest, ASecondLoadOfTheSameFileMakesNoSecondModule)
{
    ASSERT_EQ(loader.load(KT_PLUGIN_FILE), "");
    ASSERT_EQ(loader.load(KT_PLUGIN_FILE), "");

    EXPECT_EQ(ktModuleBase::modules().size(), 1U);
    EXPECT_EQ(ktController::countCallbacks(), 6);
    EXPECT_EQ(window.findChildren<QDockWidget*>().size(), 1);
}

TEST_F(PluginLoaderTest, RefusesAnotherVersionNamingBoth)
{
    expectRefusal(badPlugin("otherVersion"), "'9.7'");
    expectRefusal(badPlugin("otherVersion"), "'10.0'");
    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(PluginLoaderTest, RefusesALibraryWithoutAnEntryPoint)
{
    expectRefusal(badPlugin("noEntry"), "initPlugin");
    expectRefusal(badPlugin("noVersion"), "getPluginVersion");
}

TEST_F(PluginLoaderTest, RefusesOneThatThrows)
{
    expectRefusal(badPlugin("throwing"), "no luck today");
    expectRefusal(badPlugin("throwingVersion"), "no version");
}

TEST_F(PluginLoaderTest, WhatOneThatThrowsHadRegisteredAndDockedGoes)
{
    expectRefusal(badPlugin("throwingLate"), "too late");

    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    ktMessage message(ktMessageId::SceneCleared);
    EXPECT_EQ(ktController::sendMessage("late", message), 0);
    ktController::deliver(message); // like the turn, would end the test program
    FrameLoop().advanceTo(1.0);
    ktPythonInit::notify(false); // would end the test program
}

TEST_F(PluginLoaderTest, CallbacksThatAPluginForgetsGoWithIt)
{
    ASSERT_EQ(loader.load(badPlugin("forgetful")), "");
    EXPECT_EQ(ktController::countCallbacks(), 1);

    loader.unloadAll();

    EXPECT_EQ(ktController::countCallbacks(), 0);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
}

TEST_F(PluginLoaderTest, PanelsOfTheModulesThatLiveAtTheEndGoWithThePlugin)
{
    ASSERT_EQ(loader.load(badPlugin("changing")), "");
    ktMessage message;
    ASSERT_EQ(ktController::sendMessage("change", message), 1);
    ASSERT_EQ(window.findChildren<QDockWidget*>().size(), 1);

    loader.unloadAll();

    EXPECT_TRUE(window.findChildren<QDockWidget*>().isEmpty());
    EXPECT_TRUE(ktModuleBase::modules().empty());
}

TEST_F(PluginLoaderTest, RefusesWhatIsNoLibrary)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("libtext.so"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no library at all\n");
    file.close();

    expectRefusal(file.fileName(), "libtext.so");
    expectRefusal(folder.filePath("libmissing.so"), "libmissing.so");
}

TEST_F(PluginLoaderTest, AFolderIsLoadedInNameOrderPastTheOnesThatAreRefused)
{
    QTemporaryDir folder;
    QFile::link(badPlugin("throwing"), folder.filePath("a.so"));
    QFile::link(KT_PLUGIN_FILE, folder.filePath("b.so"));
    QFile::link(badPlugin("otherVersion"), folder.filePath("c.so"));
    QFile::link(KT_PLUGIN_FILE, folder.filePath("d.txt"));

    EXPECT_EQ(loader.loadFolder(folder.path()), 1);

    ASSERT_EQ(logged.size(), 2U);
    EXPECT_NE(logged[0].find("/a.so: it threw: no luck today"), std::string::npos) << logged[0];
    EXPECT_NE(logged[1].find("/c.so: "), std::string::npos) << logged[1];
}

TEST_F(PluginLoaderTest, AMissingFolderHasNoPlugins)
{
    EXPECT_EQ(loader.loadFolder("/no/such/folder"), 0);
    EXPECT_TRUE(logged.empty());
}

TEST_F(PluginLoaderTest, AModuleThatFailsInEveryCallIsLoggedAndTheHostRunsOn)
{
    ASSERT_EQ(loader.load(badPlugin("throwingInit")), "");
    FrameLoop frames;
    ktMessage message(ktMessageId::SceneCleared);

    ktController::deliver(message);
    ktController::sendMessage("fail", message);
    frames.advanceTo(1.0);

    EXPECT_EQ(logged.size(), 5U) << "init, message, callback, loop, update";
}
