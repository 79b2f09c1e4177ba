#pragma once

#include "tests/model/HostModel.h"
#include "tests/model/RealHost.h"
#include "tests/model/Steps.h"

#include <kt/ktMessage.h>
#include <osg/Node.h>

#include <map>
#include <string>
#include <vector>

namespace kt::test
{

/// The real host with the built plug-in, and the model beside it; both begin with a scene that has a sensor
/// of each name. Each step is done on both sides. Whatever differs fails the property: in words, what it is
/// here and there.
class Pair
{
public:
    explicit Pair(RealHost& host);

    /// Does the step on both sides, and compares what it answers.
    void perform(const Step& step);

    /// All that can be seen.
    void compare();

private:
    struct Placed
    {
        osg::NodePtr node;
        int depth;
    };

    void perform(const AddNode& step);
    void perform(const RemoveNode& step);
    void perform(const RenameNode& step);
    void perform(const EndTurn&);
    void perform(const Run& step);
    void perform(const Message& step);
    void perform(const OddMessage& step);
    void perform(const Deliver& step);
    void perform(const PressKey& step);
    void perform(const SelectRows& step);
    void perform(const PressInList& step);
    void perform(const ChooseEntry& step);
    void perform(const DoubleClick& step);
    void perform(const RenameRow& step);
    void perform(const TypeComment& step);
    void perform(const ChooseItem& step);
    void perform(const TurnCycleInterval& step);
    void perform(const TurnFraction& step);
    void perform(const WriteScene& step);
    void perform(const WriteProject& step);
    void perform(const Open& step);
    void perform(const OpenWithScene& step);
    void perform(const Save& step);
    void perform(const Close&);
    void perform(const TellSettings& step);
    void perform(const ScriptCall& step);
    void perform(const AskHost& step);
    void perform(const SelectNodes& step);

    void compareList() const;
    void comparePanel() const;
    void compareScene();
    void compareSelection() const;
    void compareProject();

    /// The nodes of the host's scene in document order, without the root.
    static std::vector<Placed> nodes();

    /// Which node a step means; their number where there are none.
    std::size_t placeOf(unsigned number) const;

    static Attributes attributesOf(const ktMessage::Attributes& attributes);

    /// By a script, for a build that has them.
    static bool isByScript(Road road);

    /// What a call of "ktHost" fails with: its line of error, as from the host's own code.
    std::string failureOfScript(const std::string& expression);

    void compareFailure(const std::string& is, const std::string& expected) const;

    /// What the host says on the standard error stream of attributes of the wrong type has to name this one;
    /// nothing is looked at where it is empty.
    static void withComplaint(const std::string& attribute, const std::function<void()>& action);

    RealHost& host;
    HostModel model;
    std::map<int, const osg::Node*>
        _known; ///< The host's nodes by the ids of the model's; for their identity alone.
};

} // namespace kt::test
