// What scripts do, by the modules "ktAnimation" and "ktHost".
#include "tests/model/Pair.h"
#include "tests/model/mustEqual.h"

namespace kt::test
{
namespace
{

std::string sensorsIn(const SceneModel& scene)
{
    std::string text;
    for (const SceneModel::Node& node : scene.nodes) {
        if (node.isSensor())
            text += (text.empty() ? "(" : ", (") + pythonText(node.name()) +
                    (node.sensor.isActive ? ", True)" : ", False)");
    }
    return '[' + text + ']';
}

std::string itemsOf(const Attributes& attributes)
{
    std::string text;
    for (const auto& [name, value] : attributes)
        text += (text.empty() ? "(" : ", (") + pythonText(name) + ", " +
                std::visit([](const auto& held) { return pythonText(held); }, value) + ')';
    return '[' + text + ']';
}

} // namespace

bool Pair::isByScript(Road road)
{
    return road == Road::Script && kthost::Scripting::isBuilt();
}

std::string Pair::failureOfScript(const std::string& expression)
{
    const std::string error = "ktHost.Error: ";
    const std::string answer = host.ask(expression);
    if (answer == "None")
        return {};
    return answer.compare(0, error.size(), error) == 0 ? answer.substr(error.size()) : answer;
}

void Pair::perform(const ScriptCall& step)
{
    if (kthost::Scripting::isBuilt())
        mustEqual("what the script gets", host.ask(step.source()), call(step, model));
}

void Pair::perform(const AskHost& step)
{
    if (!kthost::Scripting::isBuilt())
        return;
    switch (step.question) {
    case AskHost::Selection:
        mustEqual("ktHost.selection()", host.ask("ktHost.selection()"),
                  pythonText(model.scene.selectedNames()));
        break;
    case AskHost::Sensors:
        mustEqual("ktHost.sensors()", host.ask("[(s['name'], s['active']) for s in ktHost.sensors()]"),
                  sensorsIn(model.scene));
        break;
    case AskHost::Project:
        model.writeSettings();
        mustEqual("ktHost.project()", host.ask("sorted(ktHost.project().items())"),
                  itemsOf(model.attributes));
        break;
    }
}

void Pair::perform(const SelectNodes& step)
{
    if (!kthost::Scripting::isBuilt())
        return;
    const int count = model.scene.select(step.names, true);
    mustEqual("ktHost.select()", host.ask("ktHost.select(" + pythonText(step.names) + ')'),
              std::to_string(count));
}

} // namespace kt::test
