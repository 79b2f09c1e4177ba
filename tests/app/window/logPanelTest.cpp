#include "host/app/window/LogPanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTextBlock>

using kthost::HostLog;
using kthost::LogPanel;

namespace
{

QColor colourOfLine(const LogPanel& panel, int line)
{
    const QTextBlock block = panel.document()->findBlockByNumber(line);
    return block.begin().fragment().charFormat().foreground().color();
}

} // namespace

TEST(LogPanelTest, ShowsWhatWasLoggedBeforeAndAfterItWasMade)
{
    HostLog log;
    ktLog::info("before");
    const LogPanel panel(log);
    ktLog::info("after");

    EXPECT_EQ(panel.toPlainText(), "before\nafter");
}

TEST(LogPanelTest, WarningsAndErrorsHaveColoursOfTheirOwn)
{
    HostLog log;
    const LogPanel panel(log);
    ktLog::info("as always");
    ktLog::warning("odd");
    ktLog::error("wrong");

    EXPECT_NE(colourOfLine(panel, 0), colourOfLine(panel, 1));
    EXPECT_NE(colourOfLine(panel, 1), colourOfLine(panel, 2));
    EXPECT_NE(colourOfLine(panel, 0), colourOfLine(panel, 2));
}

TEST(LogPanelTest, ForgetsTheOldestLinesWhenThereAreTooMany)
{
    HostLog log;
    const LogPanel panel(log);
    for (std::size_t i = 0; i < HostLog::mostLines + 5; ++i)
        ktLog::info("line %zu", i);

    EXPECT_EQ(panel.document()->blockCount(), static_cast<int>(HostLog::mostLines));
    EXPECT_EQ(panel.document()->firstBlock().text(), "line 5");
}

TEST(LogPanelTest, ItsTextCanBeCopiedAndNotBeEdited)
{
    HostLog log;
    LogPanel panel(log);
    ktLog::info("scene.wrl:12: what the reader says");

    panel.selectAll();
    panel.copy();

    EXPECT_EQ(QApplication::clipboard()->text(), "scene.wrl:12: what the reader says");
    EXPECT_TRUE(panel.isReadOnly());
}
