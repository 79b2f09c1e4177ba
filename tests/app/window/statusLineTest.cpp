#include "host/app/window/StatusLine.h"

#include "host/app/HostLog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>

#include <algorithm>

using kthost::OpenStep;

namespace
{

class StatusLineTest : public testing::Test
{
protected:
    StatusLineTest() { bar.show(); }

    /// Opens a scene of this VRML97 text.
    void open(const QByteArray& text)
    {
        QFile file(folder.filePath("a.wrl"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#VRML V2.0 utf8\n" + text);
        file.close();
        session.open(file.fileName());
        line.showScene(session);
    }

    bool says(const QString& text) const
    {
        for (const QLabel* label : bar.findChildren<QLabel*>()) {
            if (label->text().contains(text))
                return true;
        }
        return false;
    }

    QToolButton& warnings() const { return *bar.findChild<QToolButton*>(); }
    QProgressBar& progress() const { return *bar.findChild<QProgressBar*>(); }

    kthost::HostLog log;
    QTemporaryDir folder;
    kthost::Session session;
    QStatusBar bar;
    kthost::StatusLine line{&bar};
};

} // namespace

TEST_F(StatusLineTest, SaysHowToBeginWhereNothingIsOpen)
{
    line.showScene(session);

    EXPECT_TRUE(says("No scene is open"));
    EXPECT_FALSE(warnings().isVisible());
}

TEST_F(StatusLineTest, NamesTheSceneAndCountsItsAnimations)
{
    open("TimeSensor {}");
    EXPECT_TRUE(says("a.wrl"));
    EXPECT_TRUE(says("1 animation"));

    open("TimeSensor {} TimeSensor {}");
    EXPECT_TRUE(says("2 animations"));
}

TEST_F(StatusLineTest, OffersTheWarningsOnlyWhereThereAreSome)
{
    open("Inline { url \"missing.wrl\" }");
    ASSERT_TRUE(warnings().isVisible());
    EXPECT_EQ(warnings().text(), "1 warning");
    QSignalSpy clicks(&line, &kthost::StatusLine::warningsClicked);
    warnings().click();
    EXPECT_EQ(clicks.size(), 1);

    open("TimeSensor {}");
    EXPECT_FALSE(warnings().isVisible());
}

TEST_F(StatusLineTest, ShowsTheSimulationTime)
{
    line.showTime(12.34);

    EXPECT_TRUE(says("12.3 s"));
}

TEST_F(StatusLineTest, ShowsHowFarAnOpeningIs)
{
    line.showOpening(OpenStep::Reading, "folder/big.wrl");
    EXPECT_TRUE(progress().isVisible());
    EXPECT_EQ(bar.currentMessage(), "Reading big.wrl...");
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    const int first = progress().value();

    line.showOpening(OpenStep::Building, "folder/big.wrl");
    EXPECT_GT(progress().value(), first);

    line.showOpening(OpenStep::Ended, "folder/big.wrl");
    EXPECT_FALSE(progress().isVisible());
    EXPECT_EQ(bar.currentMessage(), "");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StatusLineTest, TheBarGrowsWithTheBytesThatAreReadAndStaysWithinTheStep)
{
    line.showOpening(OpenStep::Reading, "big.wrl");
    const int first = progress().value();
    line.showReading(0.5);
    const int half = progress().value();
    line.showReading(1.0);
    const int whole = progress().value();
    EXPECT_LT(first, half);
    EXPECT_LT(half, whole);

    line.showOpening(OpenStep::Building, "big.wrl");
    EXPECT_GE(progress().value(), whole);
    EXPECT_LT(progress().value(), progress().maximum());
    line.showOpening(OpenStep::Ended, "big.wrl");
}

TEST_F(StatusLineTest, ALargeFileTellsHowFarItsReadingIs)
{
    std::vector<double> parts;
    QObject::connect(&session, &kthost::Session::reading, [&](double part) { parts.push_back(part); });

    open(QByteArray("Group {}\n").repeated(5000));

    ASSERT_GT(parts.size(), 20U);
    EXPECT_LE(parts.size(), 101U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    EXPECT_LT(parts.front(), 0.1);
    EXPECT_GT(parts.back(), 0.9);
    EXPECT_LE(parts.back(), 1.0);
}

TEST_F(StatusLineTest, AnOpeningGoesThroughItsStepsAndEndsWhetherItFailsOrNot)
{
    std::vector<OpenStep> steps;
    QObject::connect(&session, &kthost::Session::opening, [&](OpenStep step) { steps.push_back(step); });

    open("TimeSensor {}");
    EXPECT_EQ(steps, (std::vector<OpenStep>{OpenStep::Reading, OpenStep::Building, OpenStep::Announcing,
                                            OpenStep::Ended}));

    steps.clear();
    EXPECT_ANY_THROW(session.open(folder.filePath("missing.wrl")));
    EXPECT_EQ(steps, (std::vector<OpenStep>{OpenStep::Reading, OpenStep::Ended}));
}
