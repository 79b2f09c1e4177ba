#include "tests/app/window/WindowFixture.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTreeView>

#include <set>

namespace
{

/// The texts of a menu's entries that the keyboard has no short way to.
void collectUnreachable(const QMenu& menu, QStringList& found)
{
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator())
            continue;
        if (QKeySequence::mnemonic(action->text()).isEmpty() && action->shortcut().isEmpty())
            found << action->text();
        if (action->menu())
            collectUnreachable(*action->menu(), found);
    }
}

class KeyboardTest : public kt::test::WindowFixture
{
protected:
    QMenu* menu(const QString& title) const
    {
        for (const QAction* action : window->menuBar()->actions()) {
            if (action->text() == title)
                return action->menu();
        }
        return nullptr;
    }

    static QWidget* focus() { return QApplication::focusWidget(); }
};

} // namespace

TEST_F(KeyboardTest, EveryEntryOfTheMenusHasAMnemonicOrAShortcut)
{
    window->open(example("courtyard.wrl"));
    QStringList found;
    for (const char* title : {"&File", "&View", "&Help"}) {
        ASSERT_NE(menu(title), nullptr) << title;
        for (const QAction* action : menu(title)->actions()) {
            if (action->menu())
                emit action->menu()->aboutToShow();
        }
        collectUnreachable(*menu(title), found);
    }

    EXPECT_TRUE(found.isEmpty()) << found.join(", ").toStdString();
}

TEST_F(KeyboardTest, NoShortcutIsGivenTwice)
{
    QStringList shortcuts;
    for (const QAction* action : window->findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty())
            shortcuts << action->shortcut().toString();
    }

    EXPECT_GE(shortcuts.size(), 6);
    EXPECT_EQ(shortcuts.removeDuplicates(), 0) << shortcuts.join(", ").toStdString();
}

TEST_F(KeyboardTest, WhateverTakesTheKeyboardHasAName)
{
    for (QDockWidget* dock : window->findChildren<QDockWidget*>())
        dock->raise();
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const bool isPartOfOther = widget->focusProxy() || qobject_cast<QAbstractItemView*>(widget->parent());
        if (!(widget->focusPolicy() & Qt::TabFocus) || isPartOfOther || widget->window() != window.get())
            continue;
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(seen, nullptr) << widget->metaObject()->className();
        EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty() && widget->accessibleName().isEmpty())
            << widget->metaObject()->className() << " " << widget->objectName().toStdString() << " in "
            << widget->parentWidget()->metaObject()->className();
    }
}

TEST_F(KeyboardTest, TabGoesFromTheTreeToTheViewAndOn)
{
    window->sceneTree().filter().setFocus();

    QTest::keyClick(focus(), Qt::Key_Tab);
    EXPECT_EQ(focus(), &window->sceneTree().view());

    QTest::keyClick(focus(), Qt::Key_Tab);
    ASSERT_TRUE(window->view().isAncestorOf(focus()));

    QTest::keyClick(focus(), Qt::Key_Tab);
    EXPECT_FALSE(window->view().isAncestorOf(focus()));
}

TEST_F(KeyboardTest, ThePanelsInSightFollowEachOther)
{
    window->view().setFocus();
    std::set<const QWidget*> stops{focus()};

    for (int i = 0; i < 2; ++i) {
        window->focusNextPanel();
        EXPECT_TRUE(stops.insert(focus()).second) << "the same panel twice";
    }
    window->focusNextPanel();

    EXPECT_TRUE(window->view().isAncestorOf(focus()));
}
