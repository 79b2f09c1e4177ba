#include "tests/support/LogRecorder.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktModuleBase.h>

#include <gtest/gtest.h>

#include <QMainWindow>

#include <functional>
#include <memory>
#include <stdexcept>

namespace
{

std::vector<std::string> calls;
std::function<void()> duringFirst;

void first(ktMessage&)
{
    calls.push_back("first");
    if (duringFirst)
        duringFirst();
}

void second(ktMessage& message)
{
    calls.push_back("second");
    message.set("answer", 42);
}

class ControllerTest : public testing::Test
{
protected:
    ControllerTest()
    {
        calls.clear();
        duringFirst = nullptr;
    }
    ~ControllerTest() override
    {
        ktController::subCB("go", first);
        ktController::subCB("go", second);
        ktController::subCB("stay", first);
    }

    int send(const char* name) { return ktController::sendMessage(name, message); }

    kt::test::LogRecorder log;
    ktMessage message;
};

TEST_F(ControllerTest, CallbacksAreCalledByNameInOrderOfRegistration)
{
    ktController::addCB("go", second);
    ktController::addCB("go", first);
    ktController::addCB("stay", first);

    EXPECT_EQ(send("go"), 2);

    EXPECT_EQ(calls, (std::vector<std::string>{"second", "first"}));
    EXPECT_EQ(boost::any_cast<int>(message.get("answer")), 42);
    EXPECT_EQ(ktController::countCallbacks(), 3);
}

TEST_F(ControllerTest, AnUnknownOrNullNameReachesNobody)
{
    ktController::addCB("go", first);

    EXPECT_EQ(send("Go"), 0);
    EXPECT_EQ(send(""), 0);
    EXPECT_EQ(send(nullptr), 0);
    EXPECT_TRUE(calls.empty());
}

TEST_F(ControllerTest, ARegistrationIsKeptOnceAndTakenBackOnce)
{
    ktController::addCB("go", first);
    ktController::addCB("go", first);
    EXPECT_EQ(send("go"), 1);

    ktController::subCB("go", first);
    ktController::subCB("go", first);
    EXPECT_EQ(send("go"), 0);
    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(ControllerTest, NullIsIgnored)
{
    ktController::addCB(nullptr, first);
    ktController::addCB("go", nullptr);
    ktController::subCB(nullptr, first);
    ktController::subCB("go", nullptr);
    ktController::subCB("nowhere", first);

    EXPECT_EQ(ktController::countCallbacks(), 0);
}

TEST_F(ControllerTest, TheMessageNamesAreThoseWithACallback)
{
    ktController::addCB("stay", first);
    ktController::addCB("go", first);
    ktController::addCB("go", second);
    EXPECT_EQ(ktController::messageNames(), (std::vector<std::string>{"go", "stay"}));

    ktController::subCB("stay", first);
    EXPECT_EQ(ktController::messageNames(), std::vector<std::string>{"go"});
}

TEST_F(ControllerTest, AnExceptionKeepsNobodyFromTheirTurn)
{
    ktController::addCB("go", first);
    ktController::addCB("go", second);

    duringFirst = [] { throw std::runtime_error("no way"); };
    EXPECT_EQ(send("go"), 2);
    EXPECT_EQ(send("go"), 2) << "and it is told of once";
    duringFirst = [] { throw 17; };
    EXPECT_EQ(send("go"), 2);

    EXPECT_EQ(calls, (std::vector<std::string>{"first", "second", "first", "second", "first", "second"}));
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"error: go: a callback of sdkKtTest failed: no way",
                                        "error: go: a callback of sdkKtTest failed: an unknown exception"}));
}

TEST_F(ControllerTest, ACallbackThatIsTakenBackMeanwhileIsNotCalled)
{
    ktController::addCB("go", first);
    ktController::addCB("go", second);
    duringFirst = [] {
        ktController::subCB("go", first);
        ktController::subCB("go", second);
    };

    EXPECT_EQ(send("go"), 1);
    EXPECT_EQ(calls, std::vector<std::string>{"first"});
}

TEST_F(ControllerTest, ACallbackThatIsAddedMeanwhileIsCalledNextTime)
{
    ktController::addCB("go", first);
    duringFirst = [] { ktController::addCB("go", second); };

    EXPECT_EQ(send("go"), 1);
    EXPECT_EQ(send("go"), 2);
}

TEST_F(ControllerTest, TheClockAndTheWindowsAreTheOnesThatWereSet)
{
    QMainWindow window;
    ktController::setMainWindow(&window, nullptr);
    ktController::setSimulationTime(0.1);
    EXPECT_EQ(ktController::getMainWindow(), &window);
    EXPECT_EQ(ktController::getDockWindowManager(), nullptr);
    EXPECT_EQ(ktController::getSimulationTime(), 0.1);

    ktController::setMainWindow(nullptr, nullptr);
    ktController::setSimulationTime(0.0);
    EXPECT_EQ(ktController::getMainWindow(), nullptr);
}

/// Writes down the ids it gets.
class Listener : public ktModuleBase
{
public:
    explicit Listener(unsigned int messages, const char* name = "Listener")
        : ktModuleBase(name, name, messages, nullptr)
    {
    }

    void receivedMessage(ktMessage& received) override
    {
        ids.push_back(received.id());
        if (reaction)
            reaction();
    }

    std::vector<std::uint32_t> ids;
    std::function<void()> reaction;
};

TEST_F(ControllerTest, MessagesAreDeliveredToThoseThatAskedForTheId)
{
    Listener all(0xa010);
    Listener scene(0x10);
    for (const std::uint32_t id : {0x10u, 0x2000u, 0x8000u, 0x11u, 0x1u, 0u}) {
        ktMessage sent(id);
        ktController::deliver(sent);
    }

    EXPECT_EQ(all.ids, (std::vector<std::uint32_t>{0x10, 0x2000, 0x8000}));
    EXPECT_EQ(scene.ids, std::vector<std::uint32_t>{0x10});
}

TEST_F(ControllerTest, AnExceptionOfAModuleIsLoggedAndTheOthersGetTheMessage)
{
    Listener thrower(0x10, "Thrower");
    Listener other(0x10);
    ktMessage sent(0x10);

    EXPECT_EQ(ktController::deliver(sent), 0);
    thrower.reaction = [] { throw std::runtime_error("no way"); };
    EXPECT_EQ(ktController::deliver(sent), 1);
    EXPECT_EQ(ktController::deliver(sent), 1) << "and is told of once";
    thrower.reaction = [] { throw 17; };
    EXPECT_EQ(ktController::deliver(sent), 1);

    EXPECT_EQ(other.ids.size(), 4u);
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"error: Thrower: message 16 failed: no way",
                                        "error: Thrower: message 16 failed: an unknown exception"}));
}

TEST_F(ControllerTest, AModuleThatIsDroppedGetsNoMessage)
{
    Listener dropped(0x10);
    Listener other(0x10);
    ktModuleBase::drop([&dropped](const ktModuleBase* module) { return module == &dropped; });
    ktMessage sent(0x10);

    ktController::deliver(sent);

    EXPECT_TRUE(dropped.ids.empty());
    EXPECT_EQ(other.ids.size(), 1u);
}

TEST_F(ControllerTest, AModuleThatGoesMeanwhileGetsNoMessage)
{
    Listener destroyer(0x10);
    auto victim = std::make_unique<Listener>(0x10);
    destroyer.reaction = [&] { victim.reset(); };
    ktMessage sent(0x10);

    ktController::deliver(sent);

    EXPECT_EQ(destroyer.ids.size(), 1u);
    EXPECT_EQ(ktModuleBase::modules().size(), 1u);
}

} // namespace
