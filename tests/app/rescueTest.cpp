// What becomes of unsaved changes when the program must end, and where they go.
#include "host/app/LastWords.h"
#include "host/app/RescueFile.h"
#include "tests/app/SessionProjectFixture.h"

#include <QStandardPaths>

#include <stdexcept>

using namespace kthost;

namespace
{

/// A variable of the environment, as it is told, for as long as this lives.
class Variable
{
public:
    Variable(const char* name, const QByteArray& value) : _name(name), _before(qgetenv(name))
    {
        qputenv(name, value);
    }

    ~Variable()
    {
        if (_before.isNull())
            qunsetenv(_name);
        else
            qputenv(_name, _before);
    }

    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* _name;
    QByteArray _before;
};

class RescueTest : public kt::test::SessionProjectFixture
{
protected:
    RescueTest() { QStandardPaths::setTestModeEnabled(false); }
    ~RescueTest() override { QStandardPaths::setTestModeEnabled(true); }

    /// A scene with unsaved changes, in a folder that is there no more.
    void editInVanishedFolder()
    {
        QDir(folder.path()).mkdir("sub");
        QFile::copy(path("door.wrl"), path("sub/door.wrl"));
        session.open(path("sub/door.wrl"));
        module.setting = "edited";
        ASSERT_TRUE(QDir(path("sub")).removeRecursively());
    }

    QByteArray encoded(const char* name) const { return QFile::encodeName(path(name)); }

    static constexpr const char* noFolder = "/dev/null/none";

    const Variable usersData{"XDG_DATA_HOME", encoded("data")};
};

TEST_F(RescueTest, WritesThemBesideTheProjectAndChangesNothing)
{
    session.open(path("door.wrl"));
    EXPECT_EQ(session.rescue().file, "") << "nothing to rescue";
    module.setting = "edited";
    EXPECT_EQ(session.rescue().file, path("door.rescued.ktproj"));
    session.save(path("p.ktproj"));
    EXPECT_EQ(session.rescue().file, "");
    module.setting = "edited again";
    EXPECT_EQ(session.rescue().file, path("p.rescued.ktproj"));
    EXPECT_EQ(session.rescue().file, path("p.rescued-2.ktproj"));

    EXPECT_TRUE(session.isModified());
    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    session.open(path("p.rescued.ktproj"));
    EXPECT_EQ(module.setting, "edited again");
    EXPECT_EQ(session.file(), path("door.wrl"));
}

TEST_F(RescueTest, TakesNamesAsTheyAre)
{
    ASSERT_TRUE(QFile::copy(path("door.wrl"), path("a%1 %2.b.wrl")));
    session.open(path("a%1 %2.b.wrl"));
    module.setting = "edited";

    EXPECT_EQ(session.rescue().file, path("a%1 %2.b.rescued.ktproj"));
    EXPECT_EQ(session.rescue().file, path("a%1 %2.b.rescued-2.ktproj"));
}

TEST_F(RescueTest, GoesToTheUsersDataWhereItCannotBeBeside)
{
    editInVanishedFolder();

    const QString file = session.rescue().file;

    EXPECT_TRUE(file.startsWith(path("data/"))) << file.toStdString();
    EXPECT_TRUE(file.endsWith("/door.rescued.ktproj")) << file.toStdString();
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_FALSE(QFile::exists(path("sub")));
}

TEST_F(RescueTest, GoesToATemporaryFolderOfItsOwnWhereThereIsNoOther)
{
    const Variable data("XDG_DATA_HOME", noFolder);
    const Variable temporary("TMPDIR", encoded("temporary"));
    ASSERT_TRUE(QDir(folder.path()).mkdir("temporary"));
    editInVanishedFolder();

    const QString file = session.rescue().file;

    EXPECT_TRUE(file.startsWith(path("temporary/kthost-"))) << file.toStdString();
    EXPECT_TRUE(file.endsWith("/door.rescued.ktproj")) << file.toStdString();
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(RescueTest, ThatFindsNoPlaceAtAllSaysWhyNotBesideTheScene)
{
    const Variable data("XDG_DATA_HOME", noFolder);
    const Variable temporary("TMPDIR", noFolder);
    editInVanishedFolder();

    try {
        ADD_FAILURE() << session.rescue().file.toStdString();
    } catch (const HostError& error) {
        EXPECT_EQ(error.what(),
                  path("sub/door.rescued.ktproj").toStdString() + ": No such file or directory");
    }
}

TEST_F(RescueTest, WorksInTheMiddleOfASaveAndOfALoad)
{
    session.open(path("door.wrl"));
    session.save(path("p.ktproj"));
    module.setting = "edited";
    QStringList rescued;
    const auto rescue = [&] { rescued << session.rescue().file; };

    module.whenAsked = rescue;
    EXPECT_THROW(session.save(path("none/q.ktproj")), HostError);
    const auto loading = QObject::connect(&session, &Session::reading, [&] { module.whenAsked = nullptr; });
    QObject::connect(&session, &Session::opening, [&](OpenStep step) {
        if (step == OpenStep::Building || step == OpenStep::Ended)
            rescue();
    });
    session.open(path("door.wrl"));
    QObject::disconnect(loading);

    EXPECT_EQ(rescued, (QStringList{path("p.rescued.ktproj"), path("p.rescued-2.ktproj"), ""}));
}

TEST_F(RescueTest, LeavesAloneWhatIsNotAllThere)
{
    putProject("p.ktproj", "of the project");
    session.open(path("door.wrl"));
    module.setting = "before";
    QString rescued = QStringLiteral("not asked");
    module.whenAsked = [&] { rescued = session.rescue().file; };
    session.open(path("p.ktproj"));

    EXPECT_EQ(rescued, "");
}

TEST_F(RescueTest, HasNothingToDoOnceTheSessionIsLetGo)
{
    session.open(path("door.wrl"));
    session.save(path("p.ktproj"));
    module.setting = "edited";
    session.letGo();

    EXPECT_EQ(session.rescue().file, "");
}

TEST_F(RescueTest, TwoAtATimeDoNotTakeTheSameName)
{
    QString inner;
    const QString outer = RescueFile::write(path("door.wrl"), [&](const QString& file) {
        if (inner.isEmpty())
            inner = RescueFile::write(path("door.wrl"), [](const QString&) {});
        EXPECT_EQ(file, path("door.rescued.ktproj"));
    });
    EXPECT_EQ(outer, path("door.rescued.ktproj"));
    EXPECT_EQ(inner, path("door.rescued-2.ktproj"));
}

TEST_F(RescueTest, ThatFailsLeavesNoFile)
{
    const auto fail = [](const QString&) { throw HostError(ExitStatus::BadFile, "no luck"); };
    EXPECT_THROW(RescueFile::write(path("door.wrl"), fail), HostError);
    EXPECT_EQ(QDir(folder.path()).entryList({"*.ktproj"}, QDir::Files), QStringList());
}

TEST_F(RescueTest, AsksModulesOnceBeforeItTakesAName)
{
    session.open(path("door.wrl"));
    module.setting = "edited";
    module.told.clear();
    QStringList files{"not asked"};
    module.whenAsked = [&] { files = QDir(folder.path()).entryList({"*.ktproj"}, QDir::Files); };

    EXPECT_EQ(session.rescue().file, path("door.rescued.ktproj"));

    EXPECT_EQ(module.told, QStringList("save"));
    EXPECT_EQ(files, QStringList());
}

TEST_F(RescueTest, SaysHowManyModulesFail)
{
    session.open(path("door.wrl"));
    module.fails = true;

    EXPECT_EQ(session.rescue().failedModules, 1);
}

TEST_F(RescueTest, ThatThrowsIsALoss)
{
    EXPECT_EQ(LastWords::rescued(), "");
    {
        const LastWords::Rescuer rescuer([]() -> std::string { throw std::runtime_error("no\nroom"); });
        EXPECT_EQ(LastWords::rescued(), "; what was not saved is lost: no room");
    }
    EXPECT_EQ(LastWords::rescued(), "");
}

} // namespace
