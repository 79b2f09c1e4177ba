#pragma once

#include <qkt/QKTDockWindowManager.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QTest>

/// A main window with its docks, as a host makes it; nothing is shown before show().
struct DockedWindow
{
    DockedWindow()
    {
        window.setObjectName("main");
        window.setCentralWidget(new QLabel("view"));
        window.resize(1000, 700);
    }

    QDockWidget* add(const char* name, Qt::DockWidgetArea area = Qt::RightDockWidgetArea, bool visible = true)
    {
        return docks->add(name, "Group", new QLabel(name), "help", QIcon(), name, area, visible, nullptr);
    }

    void show()
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        // What the display answers to their first appearance comes too late for a size that is set before it.
        for (QDockWidget* dock : window.findChildren<QDockWidget*>())
            EXPECT_TRUE(!dock->isFloating() || dock->isHidden() || QTest::qWaitForWindowExposed(dock));
        QApplication::setActiveWindow(&window);
    }

    /// The entry of the window menu with this text.
    QAction* entry(const QString& text) const
    {
        for (QAction* action : docks->windowMenu()->actions())
            if (action->text() == text && !action->isSeparator())
                return action;
        return nullptr;
    }

    QMainWindow window;
    QKTDockWindowManager* docks = new QKTDockWindowManager(&window);
};
