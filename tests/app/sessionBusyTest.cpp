// Modules that open and save while they are told of an opening or a save.
#include "tests/app/SessionProjectFixture.h"

#include <functional>

using namespace kthost;

namespace
{

/// Does something else in the middle of message 8192, before the other modules get it.
class RestlessModule : public ktModuleBase
{
public:
    RestlessModule()
        : ktModuleBase("Restless", "Restless", ktMessageId::Project | ktMessageId::SceneChanged, nullptr)
    {
    }

    void receivedMessage(ktMessage&) override
    {
        if (act)
            std::exchange(act, {})();
    }

    std::function<void()> act;
};

class SessionBusyTest : public testing::Test
{
protected:
    // The restless one is told first.
    RestlessModule restless;

    struct Fixture : kt::test::SessionProjectFixture
    {
        void TestBody() override {}
        using SessionProjectFixture::document;
        using SessionProjectFixture::module;
        using SessionProjectFixture::path;
        using SessionProjectFixture::putProject;
        using SessionProjectFixture::session;
    } fixture;

    std::string failure;

    template <class Call>
    std::function<void()> tried(Call call)
    {
        return [this, call] {
            try {
                call();
            } catch (const HostError& error) {
                failure = error.what();
            }
        };
    }
};

TEST_F(SessionBusyTest, NothingIsSavedWhileAProjectIsOpened)
{
    fixture.putProject("p.ktproj", "kept");
    restless.act = tried([this] { fixture.session.save(fixture.path("p.ktproj")); });

    fixture.session.open(fixture.path("p.ktproj"));

    EXPECT_EQ(failure,
              fixture.path("p.ktproj").toStdString() + ": another file is just being opened or saved");
    EXPECT_EQ(fixture.module.setting, "kept");
    EXPECT_EQ(fixture.document("p.ktproj")["attributes"]["setting"]["value"], "kept");
}

TEST_F(SessionBusyTest, NothingIsOpenedOrClosedWhileAnotherIs)
{
    for (const bool opens : {true, false}) {
        fixture.putProject("p.ktproj", "kept");
        failure.clear();
        restless.act = tried([this, opens] {
            if (opens)
                fixture.session.open(fixture.path("door.wrl"));
            else
                fixture.session.close();
        });
        fixture.session.open(fixture.path("p.ktproj"));
        EXPECT_NE(failure, "");
        EXPECT_EQ(fixture.session.projectFile(), fixture.path("p.ktproj"));
        EXPECT_FALSE(fixture.session.isModified());
    }
    fixture.session.open(fixture.path("door.wrl")); // and afterwards it can be
    EXPECT_EQ(fixture.session.projectFile(), "");
}

TEST_F(SessionBusyTest, AFailedOpeningLeavesTheSessionFree)
{
    EXPECT_THROW(fixture.session.open(fixture.path("none.wrl")), HostError);
    EXPECT_NO_THROW(fixture.session.open(fixture.path("door.wrl")));
}

TEST_F(SessionBusyTest, AQuestionInBetweenDoesNotKeepTheOthersFromLoading)
{
    fixture.putProject("p.ktproj", "kept");
    restless.act = [this] { EXPECT_FALSE(fixture.session.isModified()); };

    fixture.session.open(fixture.path("p.ktproj"));

    EXPECT_EQ(fixture.module.setting, "kept");
}

} // namespace
