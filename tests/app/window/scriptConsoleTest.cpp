#include "host/app/window/ScriptConsole.h"
#include "host/app/ActionRunner.h"
#include "host/app/LiveClock.h"
#include "host/app/Pictures.h"
#include "host/app/Scripting.h"
#include "host/app/Session.h"
#include "tests/app/window/Settings.h"
#include "tests/support/LogRecorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace
{

using namespace kthost;

class ScriptConsoleTest : public testing::Test
{
protected:
    void type(const char* line)
    {
        QTest::keyClicks(&input(), QLatin1String(line));
        QTest::keyClick(&input(), Qt::Key_Return);
    }

    QLineEdit& input() const { return *console.findChild<QLineEdit*>(); }
    QString prompt() const { return console.findChild<QLabel*>()->text(); }
    QString output() const { return console.findChild<QPlainTextEdit*>()->toPlainText(); }

    kt::test::Settings settings;
    kt::test::LogRecorder log;
    Session session;
    LiveClock clock{session.frames()};
    Pictures pictures{session};
    ActionRunner runner{session, pictures};
    Scripting scripting{session, runner, &clock};
    ScriptConsole console{scripting};
};

} // namespace

TEST_F(ScriptConsoleTest, ShowsWhatIsTypedItsValueAndItsErrors)
{
    type("6 * 7");
    type("print 'hello'");
    type("1 / 0");

    EXPECT_TRUE(output().startsWith(">>> 6 * 7\n42\n>>> print 'hello'\nhello\n>>> 1 / 0\n"))
        << output().toStdString();
    EXPECT_TRUE(output().endsWith("ZeroDivisionError: integer division or modulo by zero\n"));
    EXPECT_EQ(input().text(), "");
}

TEST_F(ScriptConsoleTest, AStatementMayGoOnInFurtherLines)
{
    type("for i in range(2):");
    EXPECT_EQ(prompt(), "... ");
    type("    print i");
    EXPECT_FALSE(output().contains("\n0\n"));
    type("");

    EXPECT_EQ(prompt(), ">>> ");
    EXPECT_TRUE(output().endsWith("... \n0\n1\n")) << output().toStdString();
}

TEST_F(ScriptConsoleTest, StopGivesUpWhatWasBegun)
{
    type("if True:");

    console.findChild<QPushButton*>()->click();

    EXPECT_EQ(prompt(), ">>> ");
}

TEST_F(ScriptConsoleTest, StopEndsAScriptThatNeverEnds)
{
    QTimer::singleShot(0, [this] {
        type("print 'not now'"); // nothing else runs meanwhile
        console.findChild<QPushButton*>()->click();
    });

    type("while True: pass");
    type("");

    EXPECT_TRUE(output().endsWith("KeyboardInterrupt\n")) << output().toStdString();
    EXPECT_FALSE(output().contains("not now\n"));
}

TEST_F(ScriptConsoleTest, UpAndDownBringEarlierLinesBackOverRuns)
{
    type("1");
    type("2");
    type("2");
    ScriptConsole next(scripting);
    auto* field = next.findChild<QLineEdit*>();

    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(field->text(), "2");
    QTest::keyClick(field, Qt::Key_Up);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(field->text(), "1");
    QTest::keyClick(field, Qt::Key_Down);
    QTest::keyClick(field, Qt::Key_Down);
    EXPECT_EQ(field->text(), "");
}

TEST_F(ScriptConsoleTest, TabCompletesNamesAndIndentsWithoutOne)
{
    type("import ktHost");

    QTest::keyClicks(&input(), "x = ktHost.sel");
    QTest::keyClick(&input(), Qt::Key_Tab);
    EXPECT_EQ(input().text(), "x = ktHost.select");
    EXPECT_TRUE(output().endsWith("ktHost.select(  ktHost.selection(\n")) << output().toStdString();

    input().clear();
    QTest::keyClick(&input(), Qt::Key_Tab);
    EXPECT_EQ(input().text(), "    ");
}

TEST_F(ScriptConsoleTest, SeveralLinesMayBePasted)
{
    QApplication::clipboard()->setText("a = 1\nb = a + 1\nprint b");

    QTest::keySequence(&input(), QKeySequence::Paste);

    EXPECT_EQ(input().text(), "print b");
    EXPECT_EQ(output(), ">>> a = 1\n>>> b = a + 1\n");
}

TEST_F(ScriptConsoleTest, AskingForTheEndIsPassedOn)
{
    const QSignalSpy asked(&console, &ScriptConsole::exitAsked);

    type("import sys; sys.exit(3)");

    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toInt(), 3);
}

TEST_F(ScriptConsoleTest, PartsHaveNamesForThoseWhoCannotSeeThem)
{
    EXPECT_FALSE(input().accessibleName().isEmpty());
    EXPECT_FALSE(console.findChild<QPlainTextEdit*>()->accessibleName().isEmpty());
    EXPECT_FALSE(console.findChild<QPushButton*>()->text().isEmpty());
}
