#include "host/project/ProjectFile.h"

#include "host/project/ProjectError.h"
#include "tests/support/ProcessLimit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <functional>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using kthost::Project;
using kthost::ProjectError;
using kthost::ProjectFile;

namespace
{

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const ProjectError& error) {
        return error.what();
    }
    return "";
}

Project large()
{
    Project project;
    project.attributes["text"] = std::string(200000, 'x');
    return project;
}

class ProjectFileTest : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(name); }

    std::string failureOfWrite(const QString& file, const Project& project = {})
    {
        return failureOf([&] { ProjectFile::write(project, file); });
    }

    std::string failureOfRead(const QString& file)
    {
        return failureOf([&] { ProjectFile::read(file); });
    }

    QStringList files() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System);
    }

    QTemporaryDir folder;
};

/// Root may write anywhere; meanwhile this process is somebody else.
class NotRoot
{
public:
    NotRoot() : _before(::geteuid())
    {
        constexpr uid_t nobody = 65534;
        if (_before == 0 && ::seteuid(nobody) != 0)
            ADD_FAILURE() << "still root";
    }
    ~NotRoot()
    {
        if (::seteuid(_before) != 0)
            ADD_FAILURE() << "root no more";
    }
    NotRoot(const NotRoot&) = delete;
    NotRoot& operator=(const NotRoot&) = delete;

private:
    uid_t _before;
};

TEST_F(ProjectFileTest, ProjectsAreToldByTheirNames)
{
    EXPECT_TRUE(ProjectFile::isProject("a.ktproj"));
    EXPECT_TRUE(ProjectFile::isProject("/x/A.KTPROJ"));
    EXPECT_FALSE(ProjectFile::isProject("a.wrl"));
    EXPECT_FALSE(ProjectFile::isProject("a.ktproj.wrl"));
    EXPECT_FALSE(ProjectFile::isProject(""));
}

TEST_F(ProjectFileTest, WhatIsWrittenIsRead)
{
    Project project;
    project.scene = "a.wrl";
    ProjectFile::write(project, path("p.ktproj"));

    EXPECT_EQ(ProjectFile::read(path("p.ktproj")).scene, "a.wrl");
    EXPECT_EQ(files(), QStringList{"p.ktproj"});
}

TEST_F(ProjectFileTest, AFileIsReplacedAndKeepsItsRights)
{
    put(path("p.ktproj"), "old");
    ::chmod(path("p.ktproj").toLocal8Bit().constData(), 0640);

    ProjectFile::write({}, path("p.ktproj"));

    EXPECT_NO_THROW(ProjectFile::read(path("p.ktproj")));
    struct stat status
    {
    };
    ASSERT_EQ(::stat(path("p.ktproj").toLocal8Bit().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    EXPECT_EQ(files(), QStringList{"p.ktproj"});
}

TEST_F(ProjectFileTest, ALinkIsFollowed)
{
    put(path("real.ktproj"), "old");
    ASSERT_TRUE(QFile::link(path("real.ktproj"), path("p.ktproj")));

    ProjectFile::write({}, path("p.ktproj"));

    EXPECT_TRUE(QFileInfo(path("p.ktproj")).isSymLink());
    EXPECT_NE(bytesOf(path("real.ktproj")), "old");
}

TEST_F(ProjectFileTest, WhatCannotBeWrittenIsToldInOneLine)
{
    QDir(folder.path()).mkdir("folder.ktproj");
    ASSERT_EQ(::mkfifo(path("pipe.ktproj").toLocal8Bit().constData(), 0600), 0);

    EXPECT_EQ(failureOfWrite(path("folder.ktproj")),
              path("folder.ktproj").toStdString() + ": it is a folder");
    EXPECT_EQ(failureOfWrite(path("pipe.ktproj")),
              path("pipe.ktproj").toStdString() + ": it is not a regular file");
    EXPECT_EQ(failureOfWrite(path("none/p.ktproj")),
              path("none/p.ktproj").toStdString() + ": No such file or directory");
    EXPECT_NE(failureOfWrite("/proc/p.ktproj"), "");
    EXPECT_EQ(failureOfWrite(path("scene.wrl")),
              path("scene.wrl").toStdString() + ": the name of a project ends in .ktproj");
    EXPECT_FALSE(QFile::exists(path("scene.wrl")));
}

TEST_F(ProjectFileTest, AFolderThatCannotBeWrittenToKeepsTheOldFile)
{
    put(path("p.ktproj"), "old");
    ::chmod(path("p.ktproj").toLocal8Bit().constData(), 0666);
    ::chmod(folder.path().toLocal8Bit().constData(), 0555);
    {
        const NotRoot user;
        EXPECT_NE(failureOfWrite(path("p.ktproj")).find("Permission denied"), std::string::npos);
    }
    ::chmod(folder.path().toLocal8Bit().constData(), 0700);
    EXPECT_EQ(bytesOf(path("p.ktproj")), "old");
}

TEST_F(ProjectFileTest, AFileThatMayNotGrowFurtherKeepsTheOldOne)
{
    put(path("p.ktproj"), "old");
    {
        const kt::test::FileSizeLimit limit(4096, SIG_IGN);
        EXPECT_EQ(failureOfWrite(path("p.ktproj"), large()),
                  path("p.ktproj").toStdString() + ": File too large");
    }
    {
        const kt::test::FileSizeLimit limit(10, SIG_IGN);
        EXPECT_EQ(failureOfWrite(path("p.ktproj")), path("p.ktproj").toStdString() + ": File too large");
    }
    EXPECT_EQ(bytesOf(path("p.ktproj")), "old");
    EXPECT_EQ(files(), QStringList{"p.ktproj"});
}

TEST_F(ProjectFileTest, AFullDiskKeepsTheOldFile)
{
    const QByteArray disk = folder.path().toLocal8Bit();
    if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "a small disk cannot be mounted here";
    const auto unmount = qScopeGuard([&] { ::umount2(disk.constData(), MNT_DETACH); });
    put(path("p.ktproj"), "old");

    EXPECT_EQ(failureOfWrite(path("p.ktproj"), large()),
              path("p.ktproj").toStdString() + ": No space left on device");
    EXPECT_EQ(bytesOf(path("p.ktproj")), "old");
    EXPECT_EQ(files(), QStringList{"p.ktproj"});
    EXPECT_EQ(failureOfWrite(path("p.ktproj")), "");

    const QByteArray whole = bytesOf(path("p.ktproj"));
    QFile rest(path("rest"));
    ASSERT_TRUE(rest.open(QIODevice::WriteOnly));
    while (rest.write(QByteArray(4096, 'x')) > 0 && rest.flush()) {
    }
    EXPECT_EQ(failureOfWrite(path("p.ktproj")), path("p.ktproj").toStdString() + ": No space left on device");
    EXPECT_EQ(bytesOf(path("p.ktproj")), whole);
}

TEST_F(ProjectFileTest, WhatIsOverTheLimitIsNeitherWrittenNorRead)
{
    put(path("p.ktproj"), "old");
    Project project;
    project.attributes["text"] = std::string(static_cast<std::size_t>(ProjectFile::sizeLimit), 'x');
    EXPECT_NE(failureOfWrite(path("p.ktproj"), project).find("it is larger than the 64 MB"),
              std::string::npos);
    EXPECT_EQ(bytesOf(path("p.ktproj")), "old");

    QFile file(path("p.ktproj"));
    ASSERT_TRUE(file.resize(ProjectFile::sizeLimit + 1));
    EXPECT_NE(failureOfRead(path("p.ktproj")).find("it is larger than the 64 MB"), std::string::npos);
}

TEST_F(ProjectFileTest, WhatCannotBeReadIsToldInOneLine)
{
    EXPECT_EQ(failureOfRead(path("none.ktproj")),
              path("none.ktproj").toStdString() + ": No such file or directory");
    EXPECT_EQ(failureOfRead(folder.path()), folder.path().toStdString() + ": it is a folder");
    put(path("p.ktproj"), "{");
    EXPECT_EQ(failureOfRead(path("p.ktproj")).find(path("p.ktproj").toStdString() + ":1:"), 0u);
}

} // namespace
