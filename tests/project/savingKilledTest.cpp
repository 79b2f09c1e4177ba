// Whenever a save is killed, the project is there whole: the one before or the one after it.
#include "host/project/ProjectFile.h"
#include "tests/support/Effort.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <random>

namespace
{

/// Lets a saver work for this long, some saves and a part of one, until it is killed.
void saveUntilKilled(const QString& file, int microseconds)
{
    QProcess saver;
    saver.start(QStringLiteral(KT_BUILD_DIR "/tests/projectSaver"), {file, QString::number(microseconds)});
    ASSERT_TRUE(saver.waitForFinished()) << saver.errorString().toStdString();
    ASSERT_EQ(saver.exitStatus(), QProcess::CrashExit) << saver.readAllStandardError().toStdString();
}

/// What the saver writes is of one piece.
void expectWhole(const QString& file)
{
    const kthost::Project project = kthost::ProjectFile::read(file);
    const int round = boost::any_cast<int>(project.attributes.at("round"));
    const auto texts = boost::any_cast<std::vector<std::string>>(project.attributes.at("texts"));
    EXPECT_EQ(texts,
              std::vector<std::string>(static_cast<std::size_t>(round % 50) * 100, std::to_string(round)));
}

} // namespace

TEST(SavingKilled, TimeAndAgainTheProjectIsWhole)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("p.ktproj");
    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<int> microseconds(1, 4000);
    for (int i = 0; i < kt::test::tries(200); ++i) {
        ASSERT_NO_FATAL_FAILURE(saveUntilKilled(file, microseconds(random)));
        ASSERT_NO_THROW(expectWhole(file)) << "kill " << i;
    }
    // A kill between a file's naming and its renaming may leave one behind, in no one's way.
    for (const QString& left : QDir(folder.path()).entryList(QDir::Files))
        EXPECT_TRUE(left.startsWith("p.ktproj")) << left.toStdString();
}
