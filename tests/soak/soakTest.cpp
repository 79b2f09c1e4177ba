// The short form of the soak: what the host holds open does not grow, and all that was asked for was done.
#include "examples/scenes/generator/SceneGenerator.h"
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <vector>

using kt::test::HostRun;

namespace
{

/// What the plug-in of the soak writes down each time.
struct Record
{
    int progress;
    int descriptors;
    int messages;
    int edits;
};

class SoakTest : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    HostRun run(const QStringList& words, const char* turnsPerRecord) const
    {
        return kt::test::runHost(QStringList{"--headless", "--plugin", KT_PLUGIN_FILE, "--plugin",
                                             KT_BUILD_DIR "/tests/plugins/soak.so"} +
                                     words,
                                 {{"KT_SOAK_TABLE", path("table.csv").toStdString()},
                                  {"KT_SOAK_SEED", "1"},
                                  {"KT_SOAK_EVERY", turnsPerRecord}});
    }

    std::vector<Record> records() const
    {
        QFile file(path("table.csv"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        file.readLine(); // the columns' names
        std::vector<Record> all;
        while (!file.atEnd()) {
            const QList<QByteArray> fields = file.readLine().trimmed().split(',');
            EXPECT_EQ(fields.size(), 7);
            all.push_back({fields.value(0).toInt(), fields.value(4).toInt(), fields.value(5).toInt(),
                           fields.value(6).toInt()});
        }
        return all;
    }

    void expectSteadyDescriptors(std::size_t count) const
    {
        const std::vector<Record> all = records();
        ASSERT_EQ(all.size(), count);
        for (const Record& record : all)
            EXPECT_EQ(record.descriptors, all.front().descriptors) << "at " << record.progress;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(SoakTest, RandomMessagesAndEditsLeaveNothingOpen)
{
    write("scene.wrl", QByteArray::fromStdString(kthost::bench::SceneGenerator::generate(100, 0)));

    const HostRun soaked = run({path("scene.wrl"), "--fps", "60", "--run", "10", "--list"}, "60");

    EXPECT_EQ(soaked.status, 0) << soaked.errors.right(2000).toStdString();
    EXPECT_GE(soaked.lines().size(), 100);
    expectSteadyDescriptors(10);
    EXPECT_EQ(records().back().messages, 6000);
    EXPECT_GT(records().back().edits, 30);
}

TEST_F(SoakTest, LoadsAlsoOfWhatDoesNotOpenLeaveNothingOpen)
{
    if (!KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";
    write("broken.wrl", "#VRML V2.0 utf8\nGroup { children [");
    write("scene.wrl", QByteArray::fromStdString(kthost::bench::SceneGenerator::generate(20, 20)));

    const HostRun soaked =
        run({"--script", KT_LOADS_SCRIPT, "--", "60", "10", folder.path(), path("broken.wrl"),
             path("scene.wrl"), kt::test::exampleScene("door.wrl"), path("none.wrl")},
            "0");

    EXPECT_EQ(soaked.status, 0) << soaked.errors.right(2000).toStdString();
    EXPECT_TRUE(soaked.output.startsWith("60 loads, ")) << soaked.output.toStdString();
    expectSteadyDescriptors(6);
}
