#include "tests/support/PluginFixture.h"

#include <kt/ktOSGWidget.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace
{

class PluginLoadTest : public kt::test::PluginFixture
{
};

TEST_F(PluginLoadTest, TheVersionIsThereBeforeTheModule)
{
    EXPECT_STREQ(entry<const char* (*)()>("getPluginVersion")(), "10.0");

    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(PluginLoadTest, LoadingAloneMakesNoModule)
{
    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
}

TEST_F(PluginLoadTest, InitPluginMakesOneModule)
{
    init();

    ASSERT_EQ(ktModuleBase::modules().size(), 1u);
    EXPECT_EQ(module().moduleName(), "Animation");
    EXPECT_STREQ(module().metaObject()->className(), "ktAnimation");
    EXPECT_EQ(ktController::countCallbacks(), 6);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 1);
}

TEST_F(PluginLoadTest, ASecondInitPluginMakesAndRegistersNothing)
{
    init();
    const ktModuleBase* made = &module();
    const QWidget* panel = module().getWidget();

    init();

    EXPECT_EQ(ktModuleBase::modules().size(), 1u);
    EXPECT_EQ(&module(), made);
    EXPECT_EQ(module().getWidget(), panel);
    EXPECT_EQ(ktController::countCallbacks(), 6);
    EXPECT_EQ(window.findChildren<QWidget*>("ktAnimationGUI").size(), 1);
}

TEST_F(PluginLoadTest, UnloadedItLeavesNothingBehind)
{
    init();
    kt::test::RecordingSensor& door = scene.addTimeSensor("Door");

    unload();

    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
    EXPECT_EQ(ktOSGWidget::countCallbacks(), 0);
    EXPECT_EQ(dlopen(KT_PLUGIN_FILE, RTLD_NOW | RTLD_NOLOAD), nullptr) << "it is still in memory";
    ktMessage start;
    start.set("animation-name", std::string("Door"));
    EXPECT_EQ(ktController::sendMessage("animationStart", start), 0);
    EXPECT_TRUE(door.changes.empty());
}

TEST_F(PluginLoadTest, WhatItSavedOutlivesIt)
{
    scene.addTimeSensor("Door");
    init();
    deliver(32768);
    ktFileIO::getProject().set("_loading", false, false);
    deliver(8192);

    unload();

    std::vector<std::string> saved;
    EXPECT_TRUE(ktFileIO::getProject().get("Animations", saved));
    EXPECT_EQ(saved, (std::vector<std::string>{"Door", "", "", ""}));
    ktFileIO::clearProject();
}

TEST_F(PluginLoadTest, UnloadedItCanBeLoadedAgain)
{
    init();
    unload();

    library = dlopen(KT_PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    init();

    EXPECT_EQ(ktModuleBase::modules().size(), 1u);
    EXPECT_EQ(ktController::countCallbacks(), 6);
}

TEST_F(PluginLoadTest, TheMainWindowMayGoFirst)
{
    auto* shortLived = new QMainWindow;
    ktController::setMainWindow(shortLived, new QKTDockWindowManager(shortLived));
    init();
    delete shortLived;

    dlclose(library);
    library = nullptr;

    EXPECT_TRUE(ktModuleBase::modules().empty());
    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(PluginLoadTest, OnlyTheEntryPointsAreExported)
{
    const QString nm = QStandardPaths::findExecutable("nm");
    if (nm.isEmpty())
        GTEST_SKIP() << "there is no nm to list the symbols with";
    QProcess process;
    process.start(nm, {"-D", "--defined-only", "--format=posix", KT_PLUGIN_FILE});
    ASSERT_TRUE(process.waitForFinished());
    QStringList symbols;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n'))
        symbols << QString::fromLatin1(line).section(QRegularExpression("[ @]"), 0, 0);
    symbols.removeAll("");

    EXPECT_TRUE(symbols.contains("getPluginVersion"));
    EXPECT_TRUE(symbols.contains("initPlugin"));
    for (const char* name : {"getPluginVersion", "initPlugin", "initktAnimation"})
        symbols.removeAll(name);
    EXPECT_TRUE(symbols.isEmpty()) << symbols.join(" ").toStdString();
}

using PluginLoadDeathTest = PluginLoadTest;

TEST_F(PluginLoadDeathTest, AProcessThatNeverUnloadsItEndsWell)
{
    // Starts the program anew: a mere fork would end without the threads of the display connection.
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            init();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
