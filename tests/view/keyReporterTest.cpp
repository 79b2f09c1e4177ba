#include "host/view/RenderView.h"
#include "host/view/SceneView.h"
#include "tests/view/MouseDrag.h"

#include <kt/ktOSGWidget.h>

#include <Inventor/nodes/SoPerspectiveCamera.h>

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QTest>

#include <vector>

using kthost::RenderView;
using kthost::SceneView;

namespace
{

struct Press
{
    int key;
    int modifiers;
    bool acceptedBefore;
};

std::vector<Press> presses;
int keyToAccept = 0;

void record(int key, int, int modifiers, QEvent* event)
{
    presses.push_back({key, modifiers, event->isAccepted()});
    if (key == keyToAccept)
        event->accept();
}

class KeyReporterTest : public testing::Test
{
protected:
    KeyReporterTest() : widget(view)
    {
        presses.clear();
        keyToAccept = 0;
        ktOSGWidget::addMGLWPressKeyCB(record);
        widget.resize(200, 200);
        widget.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
        view.camera()->position = Moved;
    }
    ~KeyReporterTest() override { ktOSGWidget::subMGLWPressKeyCB(record); }

    QWidget* window() { return widget.focusProxy(); }

    /// The viewer's Home key takes the camera back.
    bool viewerSawHome() const { return view.camera()->position.getValue() != Moved; }

    void send(QEvent::Type type, int key, bool repeat)
    {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        QCoreApplication::sendEvent(window(), &event);
    }

    const SbVec3f Moved{7.0F, 7.0F, 7.0F};
    SceneView view;
    RenderView widget;
};

} // namespace

TEST_F(KeyReporterTest, APressIsReportedWithItsKeyAndModifiers)
{
    QTest::keyClick(window(), Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier);

    ASSERT_EQ(presses.size(), 3U); // Shift and Control are keys themselves
    EXPECT_EQ(presses[2].key, Qt::Key_A);
    EXPECT_EQ(presses[2].modifiers, static_cast<int>(Qt::ShiftModifier | Qt::ControlModifier));
}

TEST_F(KeyReporterTest, APressIsHandedOverNotYetAccepted)
{
    QTest::keyClick(window(), Qt::Key_B);

    ASSERT_EQ(presses.size(), 1U);
    EXPECT_FALSE(presses[0].acceptedBefore);
}

TEST_F(KeyReporterTest, AnUnacceptedPressReachesTheViewer)
{
    QTest::keyClick(window(), Qt::Key_Home);

    EXPECT_EQ(presses.size(), 1U);
    EXPECT_TRUE(viewerSawHome());
}

TEST_F(KeyReporterTest, AnAcceptedPressStopsThere)
{
    keyToAccept = Qt::Key_Home;

    QTest::keyClick(window(), Qt::Key_Home);

    EXPECT_EQ(presses.size(), 1U);
    EXPECT_FALSE(viewerSawHome());
}

TEST_F(KeyReporterTest, AKeyThatIsHeldDownIsOnePress)
{
    send(QEvent::KeyPress, Qt::Key_A, false);
    send(QEvent::KeyPress, Qt::Key_A, true);
    send(QEvent::KeyPress, Qt::Key_A, true);
    send(QEvent::KeyRelease, Qt::Key_A, false);

    EXPECT_EQ(presses.size(), 1U);
}

TEST_F(KeyReporterTest, RepetitionsOfAnAcceptedPressDoNotReachTheViewer)
{
    keyToAccept = Qt::Key_Home;

    send(QEvent::KeyPress, Qt::Key_Home, false);
    send(QEvent::KeyPress, Qt::Key_Home, true);
    send(QEvent::KeyRelease, Qt::Key_Home, false);

    EXPECT_FALSE(viewerSawHome());
}

TEST_F(KeyReporterTest, ALaterPressOfTheSameKeyIsReportedAgain)
{
    keyToAccept = Qt::Key_A;

    QTest::keyClick(window(), Qt::Key_A);
    QTest::keyClick(window(), Qt::Key_A);

    EXPECT_EQ(presses.size(), 2U);
}

TEST_F(KeyReporterTest, EscapeLeavesTheViewersGesturesOn)
{
    const SbRotation before = view.camera()->orientation.getValue();

    QTest::keyClick(window(), Qt::Key_Escape);
    kt::test::drag(window(), QPoint(100, 100), QPoint(150, 100));

    EXPECT_FALSE(before.equals(view.camera()->orientation.getValue(), 1e-3F));
}
