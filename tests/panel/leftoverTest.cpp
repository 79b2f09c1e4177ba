// Whatever changes the registry shows the properties again, also where no row is selected that would see to
// it.
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktMessage.h>

#include <functional>

namespace
{

struct Change
{
    const char* name;
    std::function<void(ktAnimation&)> make;
};

void load(ktAnimation& module)
{
    ktMessage project;
    project.set("Animations", std::vector<std::string>{"Door", "", "", ""});
    module.animationLoad(project);
}

void tell(ktAnimation& module, std::uint32_t id)
{
    ktMessage message(id);
    module.receivedMessage(message);
}

const Change changes[] = {
    {"insert", [](ktAnimation& module) { module.insertAnimation("New"); }},
    {"remove", [](ktAnimation& module) { module.removeAnimation("Door", true); }},
    {"clear", [](ktAnimation& module) { module.clearAnimations(); }},
    {"delete", [](ktAnimation& module) { module.animationDelete(); }},
    {"load", load},
    {"scan", [](ktAnimation& module) { module.refreshAnimations(); }},
    {"select", [](ktAnimation& module) { module.animationSelected(); }},
    {"sceneCleared", [](ktAnimation& module) { tell(module, 16); }},
    {"sceneChanged", [](ktAnimation& module) { tell(module, 32768); }},
};

class LeftoverTest : public kt::test::ModuleFixture, public testing::WithParamInterface<Change>
{
};

TEST_P(LeftoverTest, GoesFromThePropertiesThoughNoRowIsSelected)
{
    addRecord("Door");
    panel()._comment->setEnabled(true);
    panel()._comment->setText("of nobody");

    GetParam().make(module());

    EXPECT_EQ(panel()._comment->text(), "");
    EXPECT_FALSE(panel()._comment->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Changes, LeftoverTest, testing::ValuesIn(changes),
                         [](const auto& change) { return std::string(change.param.name); });

} // namespace
