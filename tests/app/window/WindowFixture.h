#pragma once

#include "host/app/FrameLoop.h"
#include "host/app/HostLog.h"
#include "host/app/PluginLoader.h"
#include "host/app/Session.h"
#include "host/app/window/MainWindow.h"
#include "host/app/window/SceneTree.h"
#include "host/view/RenderView.h"
#include "tests/app/window/Settings.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktScenegraph.h>
#include <qkt/QKTDockWindowManager.h>

#include <gtest/gtest.h>

#include <QDockWidget>
#include <QTest>

#include <memory>

namespace kt::test
{

/// The host's window on the display, with a session and without plug-ins; settings of its own.
class WindowFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        ktController::setSimulationTime(0.0);
        open();
    }

    void TearDown() override
    {
        close();
        ktController::setMainWindow(nullptr, nullptr);
    }

    /// A run of the program, until close().
    void open(bool withPlugin = false)
    {
        window = std::make_unique<kthost::MainWindow>(session, log);
        ktController::setMainWindow(window.get(), &window->docks());
        plugins = std::make_unique<kthost::PluginLoader>();
        if (withPlugin) {
            EXPECT_EQ(plugins->load(QStringLiteral(KT_PLUGIN_FILE)), "");
        }
        window->arrange();
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void close()
    {
        if (session.isModified())
            session.close(); // nobody is here to answer
        if (window)
            window->close();
        plugins.reset();
        window.reset();
    }

    static QString example(const char* name) { return QStringLiteral(KT_EXAMPLES_DIR "/scenes/") + name; }

    static ktNodePtr node(const char* name) { return ktScenegraph::findNodes(name).at(0); }

    /// A dock by its name in the layout.
    QDockWidget* dock(const char* name) const { return window->findChild<QDockWidget*>(name); }

    template <class Widget>
    Widget* panel() const
    {
        return window->findChild<Widget*>();
    }

    Settings settings;
    kthost::HostLog log;
    kthost::Session session;
    std::unique_ptr<kthost::MainWindow> window;
    std::unique_ptr<kthost::PluginLoader> plugins;
};

} // namespace kt::test
