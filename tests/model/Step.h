#pragma once

#include <rapidcheck.h>

#include <ostream>

namespace kt::test
{

enum class Do {
    AddSensor,
    AddOther,
    RemoveNode,
    RenameNode,
    PassTime,
    Clear,
    Scan,
    Load,
    Message,
    Key,
    Select,
    ListKey,
    MenuEntry,
    Comment,
    Box,
    CycleInterval,
    Fraction,
    Last = Fraction
};

/// One entry into the module; what the numbers mean is its own affair.
struct Step
{
    Do what;
    unsigned a;
    unsigned b;
    unsigned c;
};

inline const char* const stepNames[] = {"AddSensor",     "AddOther", "RemoveNode", "RenameNode", "PassTime",
                                        "Clear",         "Scan",     "Load",       "Message",    "Key",
                                        "Select",        "ListKey",  "MenuEntry",  "Comment",    "Box",
                                        "CycleInterval", "Fraction"};

inline void showValue(const Step& step, std::ostream& out)
{
    out << stepNames[static_cast<int>(step.what)] << '(' << step.a << ", " << step.b << ", " << step.c << ')';
}

} // namespace kt::test

/// Any step, by chance.
template <>
struct rc::Arbitrary<kt::test::Step>
{
    static rc::Gen<kt::test::Step> arbitrary()
    {
        using kt::test::Do;
        using kt::test::Step;
        const auto what = rc::gen::map(rc::gen::inRange(0, static_cast<int>(Do::Last) + 1),
                                       [](int number) { return static_cast<Do>(number); });
        const auto number = rc::gen::inRange(0U, 64U);
        return rc::gen::build<Step>(rc::gen::set(&Step::what, what), rc::gen::set(&Step::a, number),
                                    rc::gen::set(&Step::b, number), rc::gen::set(&Step::c, number));
    }
};
