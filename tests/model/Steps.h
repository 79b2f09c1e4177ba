#pragma once

#include "tests/model/HostModel.h"
#include "tests/model/PythonModel.h"

#include <cstdint>
#include <iosfwd>
#include <variant>
#include <vector>

namespace kt::test
{

// What can reach the module and the host it is in, one by one. Numbers of nodes, rows and the like count
// modulo how many there are; where there are none, the step does nothing.

/// By whom: the host's own code, or a script by the module "ktHost".
enum class Road { Host, Script };

// The scene, edited as modules and scripts do.
struct AddNode
{
    const char* kind; ///< Of the core; empty for none.
    std::optional<std::string> name;
    unsigned under; ///< 0: the root.
};
struct RemoveNode
{
    unsigned node;
};
struct RenameNode
{
    unsigned node;
    std::string name;
    bool isAnnounced;
};

// The frame loop.
struct EndTurn
{
};
struct Run
{
    double seconds;
    double framesPerSecond;
    Road road;
};

// Messages and keys.
struct Message
{
    const char* message;
    std::string animation;
    Road road;
};
/// The animation's name is no text.
struct OddMessage
{
    const char* message;
};
struct Deliver
{
    std::uint32_t id;
};
struct PressKey
{
    int key;
    int modifiers;
};

// The panel.
struct SelectRows
{
    unsigned rows; ///< Its bits, again and again.
};
struct PressInList
{
    int key;
};
struct ChooseEntry
{
    int entry;
};
struct DoubleClick
{
    unsigned row;
};
struct RenameRow
{
    unsigned row;
    QString text;
};
struct TypeComment
{
    QString text;
};
struct ChooseItem
{
    unsigned box;
    unsigned item;
};
struct TurnCycleInterval
{
    double value;
};
struct TurnFraction
{
    double value;
};

// Files: those of others, and what the host does with them. The names are those in the host's folder.
struct WriteScene
{
    const char* file;
    SceneFile scene;
};
struct WriteProject
{
    const char* file;
    const char* scene;
    Attributes attributes;
};
struct Open
{
    const char* file;
    Road road;
};
struct OpenWithScene
{
    const char* project;
    const char* scene;
};
struct Save
{
    const char* project;
    Road road;
};
struct Close
{
};
/// Another module tells of settings, within what is open.
struct TellSettings
{
    std::optional<Attribute> settings;
};

// Scripts.
struct AskHost
{
    enum Question { Selection, Sensors, Project } question;
};
struct SelectNodes
{
    std::vector<std::string> names;
};

using Step = std::variant<AddNode, RemoveNode, RenameNode, EndTurn, Run, Message, OddMessage, Deliver,
                          PressKey, SelectRows, PressInList, ChooseEntry, DoubleClick, RenameRow, TypeComment,
                          ChooseItem, TurnCycleInterval, TurnFraction, WriteScene, WriteProject, Open,
                          OpenWithScene, Save, Close, TellSettings, ScriptCall, AskHost, SelectNodes>;

/// In words, for whoever reads a failure.
std::string inWords(const Step& step);

/// Steps one after the other; shown a line each.
struct Sequence
{
    std::vector<Step> steps;
};

void showValue(const Sequence& sequence, std::ostream& out);

} // namespace kt::test
