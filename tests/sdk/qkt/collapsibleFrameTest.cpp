#include "tests/sdk/qkt/KeptSettings.h"

#include <qkt/QKTCollapsibleFrame.h>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace
{

/// A window with one named frame in it, whose page holds a text field.
struct FramedWindow
{
    explicit FramedWindow(const char* name = "timing")
    {
        window.setObjectName("panel");
        auto* body = new QWidget;
        body->setObjectName("body");
        auto* layout = new QVBoxLayout(body);
        frame = new QKTCollapsibleFrame(body);
        frame->setObjectName(name);
        frame->setCaption("Timing");
        page = new QLineEdit;
        frame->addPage(page);
        layout->addWidget(frame);
        layout->addStretch();
        window.setCentralWidget(body);
    }

    void show()
    {
        window.resize(400, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
    }

    QAbstractButton* header() const { return frame->findChild<QAbstractButton*>(); }

    QMainWindow window;
    QKTCollapsibleFrame* frame;
    QLineEdit* page;
};

class CollapsibleFrameTest : public testing::Test
{
protected:
    CollapsibleFrameTest() { shown.show(); }

    void press(Qt::Key key)
    {
        shown.header()->setFocus();
        QTest::keyClick(shown.header(), key);
    }

    QAccessibleInterface* told() const { return QAccessible::queryAccessibleInterface(shown.header()); }

    FramedWindow shown;
    QKTCollapsibleFrame& frame = *shown.frame;
    QSignalSpy changes{&frame, &QKTCollapsibleFrame::collapsedChanged};
};

TEST_F(CollapsibleFrameTest, FoldsAndUnfoldsByAClickAnywhereOnTheCaption)
{
    const QPoint nearTheEnd(shown.header()->width() - 5, shown.header()->height() / 2);

    QTest::mouseClick(shown.header(), Qt::LeftButton, Qt::NoModifier, nearTheEnd);
    EXPECT_TRUE(frame.isCollapsed());
    EXPECT_FALSE(shown.page->isVisible());
    QTest::mouseClick(shown.header(), Qt::LeftButton);
    EXPECT_FALSE(frame.isCollapsed());
    EXPECT_TRUE(shown.page->isVisible());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(CollapsibleFrameTest, TurnsOverWithSpaceAndReturn)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        press(key);
        EXPECT_TRUE(frame.isCollapsed());
        press(key);
        EXPECT_FALSE(frame.isCollapsed());
    }
}

TEST_F(CollapsibleFrameTest, FoldsWithLeftAndUnfoldsWithRight)
{
    press(Qt::Key_Right);
    EXPECT_FALSE(frame.isCollapsed());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_TRUE(frame.isCollapsed());
    press(Qt::Key_Right);
    EXPECT_FALSE(frame.isCollapsed());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(CollapsibleFrameTest, FoldsTheOtherWayRoundInRightToLeftLayouts)
{
    frame.setLayoutDirection(Qt::RightToLeft);

    press(Qt::Key_Right);
    EXPECT_TRUE(frame.isCollapsed());
    press(Qt::Key_Left);
    EXPECT_FALSE(frame.isCollapsed());
}

TEST_F(CollapsibleFrameTest, NeedsOnlyTheHeightOfItsCaptionWhenFolded)
{
    const int unfolded = frame.sizeHint().height();
    frame.setCollapsed(true);

    EXPECT_LT(frame.sizeHint().height(), unfolded);
    EXPECT_EQ(frame.sizeHint().height(), shown.header()->sizeHint().height());
}

TEST_F(CollapsibleFrameTest, LeavesTheFocusToTheCaptionWhenItsPageFolds)
{
    QLineEdit next(frame.parentWidget()); // where Qt would take the focus to
    next.show();
    QWidget::setTabOrder(shown.page, &next);
    shown.page->setFocus();
    frame.setCollapsed(true);

    EXPECT_EQ(QApplication::focusWidget(), shown.header());
}

TEST_F(CollapsibleFrameTest, TellsAssistiveToolsItsCaptionAndWhetherItIsExpanded)
{
    EXPECT_EQ(told()->text(QAccessible::Name), "Timing");
    EXPECT_TRUE(told()->state().expandable);
    EXPECT_TRUE(told()->state().expanded);
    EXPECT_FALSE(told()->state().collapsed);

    frame.setCollapsed(true);
    EXPECT_FALSE(told()->state().expanded);
    EXPECT_TRUE(told()->state().collapsed);

    frame.setCaption("Sound & Light");
    EXPECT_EQ(frame.caption(), "Sound & Light");
    EXPECT_EQ(told()->text(QAccessible::Name), "Sound & Light");
    EXPECT_EQ(frame.accessibleName(), "Sound & Light");
    EXPECT_TRUE(shown.header()->shortcut().isEmpty()); // the ampersand is a letter of the caption
}

TEST_F(CollapsibleFrameTest, FoldsAtTheWordOfAnAssistiveTool)
{
    ASSERT_TRUE(told()->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    told()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_TRUE(frame.isCollapsed());
}

TEST_F(CollapsibleFrameTest, StacksItsPagesAndIgnoresNone)
{
    auto* second = new QLineEdit;
    frame.addPage(second);
    frame.addPage(nullptr);
    QApplication::processEvents();

    EXPECT_TRUE(frame.isAncestorOf(second));
    EXPECT_GT(second->mapTo(&frame, QPoint()).y(), shown.page->mapTo(&frame, QPoint()).y());
}

TEST_F(CollapsibleFrameTest, DrawsItsCaptionInDarkAndLightPalettes)
{
    const auto contrast = [this](const QColor& window, const QColor& text) {
        QPalette colors;
        colors.setColor(QPalette::Window, window);
        colors.setColor(QPalette::WindowText, text);
        frame.setPalette(colors);
        const QImage picture = shown.header()->grab().toImage();
        int darkest = 255;
        int lightest = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const int gray = qGray(picture.pixel(x, y));
                darkest = std::min(darkest, gray);
                lightest = std::max(lightest, gray);
            }
        }
        return lightest - darkest;
    };

    EXPECT_GT(contrast(Qt::black, Qt::white), 128);
    EXPECT_GT(contrast(Qt::white, Qt::black), 128);
}

TEST(CollapsibleFrameMemoryTest, RemembersWhatTheUserFoldedInTheNextRun)
{
    const kt::test::KeptSettings settings;
    {
        FramedWindow first;
        first.show();
        QTest::mouseClick(first.header(), Qt::LeftButton);
    }
    FramedWindow second;
    FramedWindow another("hotkeys");
    EXPECT_FALSE(second.frame->isCollapsed());
    second.show();
    another.show();

    EXPECT_TRUE(second.frame->isCollapsed());
    EXPECT_FALSE(another.frame->isCollapsed());
}

TEST(CollapsibleFrameMemoryTest, RemembersOnlyWhatTheUserDid)
{
    const kt::test::KeptSettings settings;
    {
        FramedWindow first;
        first.show();
        first.frame->setCollapsed(true);
    }
    FramedWindow second;
    second.show();

    EXPECT_FALSE(second.frame->isCollapsed());
}

TEST(CollapsibleFrameMemoryTest, RemembersNothingWithoutANameOfTheFrameOrTheApplication)
{
    const auto isCollapsedNextTime = [](const char* name) {
        {
            FramedWindow first(name);
            first.show();
            QTest::mouseClick(first.header(), Qt::LeftButton);
        }
        FramedWindow second(name);
        second.show();
        return second.frame->isCollapsed();
    };

    EXPECT_FALSE(isCollapsedNextTime("timing"));
    const kt::test::KeptSettings settings;
    EXPECT_FALSE(isCollapsedNextTime(""));
    EXPECT_TRUE(isCollapsedNextTime("timing"));
}

TEST(CollapsibleFrameMemoryTest, KeepsItsFoldingWhenItsWindowIsDockedElsewhere)
{
    const kt::test::KeptSettings settings;
    {
        FramedWindow first;
        first.show();
        QTest::mouseClick(first.header(), Qt::LeftButton);
    }
    QMainWindow host;
    host.setObjectName("host");
    auto* panel = new FramedWindow;
    panel->window.setParent(&host);
    host.show();
    panel->window.show();

    EXPECT_TRUE(panel->frame->isCollapsed());
    panel->window.setParent(nullptr);
    delete panel;
}

} // namespace
