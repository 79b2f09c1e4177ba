#include "tests/model/Steps.h"

#include <ostream>
#include <sstream>

namespace kt::test
{
namespace
{

std::string quoted(const std::string& bytes)
{
    return pythonText(bytes);
}

std::string quoted(const QString& text)
{
    return text.isNull() ? "(null)" : pythonText(text.toUtf8().toStdString());
}

std::string quoted(const Attribute& attribute)
{
    return std::visit([](const auto& value) { return pythonText(value); }, attribute);
}

std::string byRoad(Road road)
{
    return road == Road::Script ? ", by a script" : "";
}

std::string words(const AddNode& step)
{
    const std::string kind = *step.kind ? step.kind : "node without a core";
    return "add a " + kind + (step.name ? " called " + quoted(*step.name) : " without a name") +
           " under node " + std::to_string(step.under);
}

std::string words(const RemoveNode& step)
{
    return "remove node " + std::to_string(step.node);
}

std::string words(const RenameNode& step)
{
    return "rename node " + std::to_string(step.node) + " to " + quoted(step.name) +
           (step.isAnnounced ? "" : ", unannounced");
}

std::string words(const EndTurn&)
{
    return "the turn of the event loop ends";
}

std::string words(const Run& step)
{
    std::ostringstream out;
    out << "run " << step.seconds << " s at " << step.framesPerSecond << " fps";
    return out.str() + byRoad(step.road);
}

std::string words(const Message& step)
{
    return std::string("send ") + step.message + " of " + quoted(step.animation) + byRoad(step.road);
}

std::string words(const OddMessage& step)
{
    return std::string("send ") + step.message + " of a number";
}

std::string words(const Deliver& step)
{
    return "deliver " + std::to_string(step.id);
}

std::string words(const PressKey& step)
{
    std::ostringstream out;
    out << "press key 0x" << std::hex << step.key << " with modifiers 0x" << step.modifiers;
    return out.str();
}

std::string words(const SelectRows& step)
{
    std::string rows;
    for (unsigned bit = 0; bit < 6; ++bit)
        rows += (step.rows >> bit) & 1U ? " " + std::to_string(bit) : "";
    return "select rows" + (rows.empty() ? " none" : rows);
}

std::string words(const PressInList& step)
{
    std::ostringstream out;
    out << "press key 0x" << std::hex << step.key << " in the list";
    return out.str();
}

std::string words(const ChooseEntry& step)
{
    const char* const entries[] = {"Start",  "Pause/Continue", "Reset", "Select Nodes",
                                   "Delete", "Refresh",        "Clear"};
    return std::string("choose ") + entries[step.entry];
}

std::string words(const DoubleClick& step)
{
    return "double-click row " + std::to_string(step.row);
}

std::string words(const RenameRow& step)
{
    return "rename row " + std::to_string(step.row) + " to " + quoted(step.text);
}

std::string words(const TypeComment& step)
{
    return "type the comment " + quoted(step.text);
}

std::string words(const ChooseItem& step)
{
    const char* const boxes[] = {"start modifier", "start key", "stop modifier", "stop key"};
    return "choose item " + std::to_string(step.item) + " of the " + boxes[step.box];
}

std::string words(const TurnCycleInterval& step)
{
    std::ostringstream out;
    out << "turn the cycle interval to " << step.value;
    return out.str();
}

std::string words(const TurnFraction& step)
{
    std::ostringstream out;
    out << "turn the fraction to " << step.value;
    return out.str();
}

std::string words(const WriteScene& step)
{
    return std::string("write ") + step.file + ":\n" + vrml(step.scene);
}

std::string words(const WriteProject& step)
{
    std::string text = std::string("write ") + step.file + " with the scene '" + step.scene + '\'';
    for (const auto& [name, value] : step.attributes)
        text += ", " + name + ' ' + quoted(value);
    return text;
}

std::string words(const Open& step)
{
    return std::string("open ") + step.file + byRoad(step.road);
}

std::string words(const OpenWithScene& step)
{
    return std::string("open ") + step.project + " with the scene " + step.scene;
}

std::string words(const Save& step)
{
    return std::string("save ") + step.project + byRoad(step.road);
}

std::string words(const Close&)
{
    return "close";
}

std::string words(const TellSettings& step)
{
    return "tell of the settings" + (step.settings ? ' ' + quoted(*step.settings) : " that the project has");
}

std::string words(const ScriptCall& step)
{
    return "script: " + step.source();
}

std::string words(const AskHost& step)
{
    const char* const questions[] = {"selection", "sensors", "project"};
    return std::string("script: ktHost.") + questions[step.question] + "()";
}

std::string words(const SelectNodes& step)
{
    return "script: ktHost.select(" + pythonText(step.names) + ')';
}

} // namespace

std::string inWords(const Step& step)
{
    return std::visit([](const auto& what) { return words(what); }, step);
}

void showValue(const Sequence& sequence, std::ostream& out)
{
    int number = 0;
    for (const Step& step : sequence.steps)
        out << '\n' << ++number << ". " << inWords(step);
    out << '\n';
}

} // namespace kt::test
