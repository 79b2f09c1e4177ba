// Files that cannot be written or are no longer there: one line, the right status, nothing half written.
#include "tests/support/ProcessLimit.h"
#include "tests/system/HostProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <csignal>

#include <grp.h>
#include <sys/mount.h>
#include <unistd.h>

using kt::test::HostRun;
using kt::test::runHeadless;

namespace
{

constexpr uid_t somebodyElse = 65534;

class FileFault : public testing::Test
{
protected:
    FileFault() { QFile::copy(kt::test::exampleScene("door.wrl"), path("door.wrl")); }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QString write(const char* name, const QByteArray& text) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    QByteArray bytes(const char* name) const
    {
        QFile file(path(name));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    static QStringList filesIn(const QString& place)
    {
        return QDir(place).entryList(QDir::Files | QDir::Hidden);
    }

    /// One line that begins with the program's name, and status 3.
    static void expectRefusal(const HostRun& run, const char* why)
    {
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.startsWith("kthost: ")) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(why)) << run.errors.toStdString();
    }

    QTemporaryDir folder;
};

/// A disk of 16 pages for as long as it lives; isThere() is false where one may not be made.
class SmallDisk
{
public:
    explicit SmallDisk(const QString& place) : _place(QFile::encodeName(place))
    {
        QDir().mkpath(place);
        _isThere = ::mount("tmpfs", _place.constData(), "tmpfs", 0, "nr_blocks=16") == 0;
    }

    ~SmallDisk()
    {
        if (_isThere)
            ::umount(_place.constData());
    }

    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isThere() const { return _isThere; }

private:
    QByteArray _place;
    bool _isThere = false;
};

/// kthost, run by a user who may do little.
class OtherUser : public kt::test::HostProcess
{
public:
    using HostProcess::HostProcess;

    static HostRun runs(QStringList words)
    {
        words.prepend("--headless");
        OtherUser process(words);
        process.run();
        return process.result();
    }

protected:
    void setupChildProcess() override
    {
        if (::setgroups(0, nullptr) != 0 || ::setgid(somebodyElse) != 0 || ::setuid(somebodyElse) != 0)
            ::_exit(99);
    }
};

} // namespace

TEST_F(FileFault, APictureThatIsTooLargeForTheDiskKeepsTheOlderOne)
{
    write("picture.png", "older");
    HostRun run;
    {
        const kt::test::FileSizeLimit limit(1000, SIG_DFL);
        run = runHeadless({path("door.wrl"), "--screenshot", path("picture.png")});
    }
    expectRefusal(run, "picture.png: File too large");
    EXPECT_EQ(bytes("picture.png"), "older");
    EXPECT_EQ(filesIn(folder.path()), (QStringList{"door.wrl", "picture.png"}));
}

TEST_F(FileFault, FramesEndWithTheFirstThatDoesNotFit)
{
    const kt::test::FileSizeLimit limit(1000, SIG_DFL);
    const HostRun run = runHeadless({path("door.wrl"), "--frames", path("frames"), "--run", "1"});

    expectRefusal(run, "frame-00001.png: File too large");
    EXPECT_EQ(filesIn(path("frames")), QStringList());
}

TEST_F(FileFault, OnAFullDiskSavesAndPicturesAreRefusedAndTheOlderOnesStay)
{
    const SmallDisk disk(path("disk"));
    if (!disk.isThere())
        GTEST_SKIP() << "no disk can be made here";
    ASSERT_EQ(runHeadless({path("door.wrl"), "--save", path("disk/p.ktproj")}).status, 0);
    const QByteArray older = bytes("disk/p.ktproj");
    QFile filler(path("disk/filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(512, 'x')) > 0) {
    }

    expectRefusal(runHeadless({path("door.wrl"), "--save", path("disk/p.ktproj")}),
                  "No space left on device");
    expectRefusal(runHeadless({path("door.wrl"), "--screenshot", path("disk/picture.png")}),
                  "No space left on device");
    EXPECT_EQ(bytes("disk/p.ktproj"), older);
    EXPECT_EQ(filesIn(path("disk")), (QStringList{"filler", "p.ktproj"}));
}

TEST_F(FileFault, APictureTakesThePlaceOfNoDevice)
{
    const HostRun run = runHeadless({path("door.wrl"), "--screenshot", "/dev/full"});

    expectRefusal(run, "/dev/full: it is not a regular file");
    EXPECT_FALSE(QFileInfo("/dev/full").isFile());
}

TEST_F(FileFault, OutputThatIsLostIsAFailure)
{
    for (const QStringList& words : {QStringList{"--list"}, QStringList{"--dump"}}) {
        kt::test::HostProcess process(QStringList{"--headless", path("door.wrl")} + words);
        process.setStandardOutputFile("/dev/full");
        process.run();
        expectRefusal(process.result(), "standard output: it could not be written");
    }
}

TEST_F(FileFault, WhatMayNotBeWrittenOrReadIsRefused)
{
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)); // as chmod 755
    if (OtherUser::runs({"--version"}).status != 0)
        GTEST_SKIP() << "another user cannot run the program here";
    write("p.ktproj", R"({"formatVersion": 1, "scene": "door.wrl"})");
    write("secret.wrl", "#VRML V2.0 utf8\n");
    QFile::setPermissions(path("secret.wrl"), QFile::ReadOwner);
    QDir().mkdir(path("open"));
    QFile::setPermissions(path("open"), QFile::Permissions(0x7777));
    write("open/p.ktproj", "{}"); // the folder may be written, the file not

    ASSERT_EQ(OtherUser::runs({path("p.ktproj"), "--list"}).status, 0);
    const QByteArray project = bytes("p.ktproj");
    expectRefusal(OtherUser::runs({path("p.ktproj"), "--save", path("p.ktproj")}), "p.ktproj: ");
    expectRefusal(OtherUser::runs({path("door.wrl"), "--save", path("q.ktproj")}),
                  "q.ktproj: Permission denied");
    expectRefusal(OtherUser::runs({path("door.wrl"), "--save", path("open/p.ktproj")}), "p.ktproj: ");
    expectRefusal(OtherUser::runs({path("door.wrl"), "--screenshot", path("a.png")}),
                  "a.png: Permission denied");
    expectRefusal(OtherUser::runs({path("secret.wrl")}), "secret.wrl: Permission denied");
    EXPECT_EQ(bytes("p.ktproj"), project);
    EXPECT_EQ(bytes("open/p.ktproj"), "{}");
    EXPECT_EQ(filesIn(folder.path()), (QStringList{"door.wrl", "p.ktproj", "secret.wrl"}));
}

TEST_F(FileFault, FromAFolderThatIsGoneWhatIsNamedInFullWorks)
{
    const auto runInNoFolder = [&](const QString& words) {
        QProcess shell;
        shell.start("sh", {"-c", QStringLiteral("mkdir -p %1/gone && cd %1/gone && rmdir %1/gone && exec %2 "
                                                "--headless %3")
                                     .arg(folder.path(), KT_BUILD_DIR "/bin/kthost", words)});
        shell.waitForFinished(kt::test::longestRun);
        HostRun run;
        run.status = shell.exitStatus() == QProcess::NormalExit ? shell.exitCode() : -1;
        run.output = shell.readAllStandardOutput();
        run.errors = shell.readAllStandardError();
        return run;
    };

    const HostRun named = runInNoFolder(path("door.wrl") + " --list --save " + path("p.ktproj"));
    EXPECT_EQ(named.status, 0) << named.errors.toStdString();
    EXPECT_EQ(named.lines(), (QStringList{"Door", "Fan"}));
    EXPECT_TRUE(bytes("p.ktproj").contains("\"door.wrl\""));
    expectRefusal(runInNoFolder("door.wrl"), "door.wrl: No such file or directory");
    expectRefusal(runInNoFolder(path("door.wrl") + " --save q.ktproj"), "q.ktproj: ");
    expectRefusal(runInNoFolder(path("door.wrl") + " --screenshot q.png"), "q.png: ");
}

TEST_F(FileFault, WhatVanishesWhileItIsOpenIsNoHindranceButForSavesThere)
{
    if (!KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";
    QDir().mkdir(path("sub"));
    QFile::copy(path("door.wrl"), path("sub/door.wrl"));
    write("sub/outer.wrl", "#VRML V2.0 utf8\nDEF Outer TimeSensor {} Inline { url \"door.wrl\" }\n");
    const QString script = write("s.py", R"(import os, shutil, sys, ktHost
sub = sys.argv[1]
names = lambda: [sensor["name"] for sensor in ktHost.sensors()]
def refused(call, *words):
    try:
        call(*words)
    except ktHost.Error as error:
        print str(error).replace(sub, "SUB")
ktHost.open(sub + "/outer.wrl")
print names()
os.remove(sub + "/door.wrl")
ktHost.open(sub + "/outer.wrl")
print names()
shutil.rmtree(sub)
ktHost.advance(0.1)
refused(ktHost.save, sub + "/p.ktproj")
refused(ktHost.screenshot, sub + "/p.png")
refused(ktHost.open, sub + "/outer.wrl")
print names()
ktHost.save(os.path.dirname(sub) + "/p.ktproj")
)");

    const HostRun run = runHeadless({"--script", script, "--", path("sub")});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_THAT(run.output.toStdString(), testing::StartsWith("['Outer', 'Door', 'Fan']\n"
                                                              "['Outer']\n"
                                                              "SUB/p.ktproj: No such file or directory\n"
                                                              "SUB/p.png: No such file or directory\n"
                                                              "SUB/outer.wrl: No such file or directory\n"
                                                              "['Outer']\n"));
    EXPECT_TRUE(bytes("p.ktproj").contains("sub/outer.wrl"));
}
