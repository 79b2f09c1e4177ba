#include "tests/model/Chance.h"

#include <Qt>

namespace kt::test
{
namespace
{

// Names whose bytes in one encoding are those of another name in the other are among them, and the one that
// sensors without a name go by.
const std::vector<std::string> names{"Door", "\xC3\xBC", "\xC3\x83\xC2\xBC", "\xE6\x89\x89", "?",
                                     "",     "door",     "TimeSensor"};
const std::vector<std::string> comments{
    "",  "front door", "\xC3\xA9",   "\xE6\x89\x89", "\xC3\x83\xC2\xA9",
    "?", "two  words", "two\nlines", "\xFF\xFE",     std::string("cut\0off", 7)};
// Few keys, so that they meet.
const std::vector<std::string> hotkeys{"A",        "Shift A",    " a", "Alt-Ctrl 1", "",
                                       "Shift  B", "Ctrl-Alt A", "F1", "\xC3\xA9",   "shift-ctrl s x"};
const std::vector<const char*> messages{"animationStart", "animationStop",     "animationToggle",
                                        "animationPause", "animationContinue", "animationReset"};
const std::vector<const char*> scenes{"a.wrl", "b.wrl", "c.wrl", "gone.wrl", HostModel::brokenScene};
const std::vector<const char*> projects{"one.ktproj", "two.ktproj", "sub/three.ktproj"};

/// Shrinks towards the first.
template <class Value>
rc::Gen<Value> among(std::vector<Value> values)
{
    return rc::gen::map(rc::gen::inRange<std::size_t>(0, values.size()),
                        [values](std::size_t place) { return values[place]; });
}

rc::Gen<unsigned> number(unsigned end = 64)
{
    return rc::gen::inRange(0U, end);
}

rc::Gen<bool> either()
{
    return among<bool>({false, true});
}

/// Mostly yes; shrinks towards it.
rc::Gen<bool> mostly()
{
    return among<bool>({true, true, true, true, true, false});
}

rc::Gen<Road> road()
{
    return among<Road>({Road::Host, Road::Host, Road::Script});
}

template <class What, class... Gens>
rc::Gen<Step> step(Gens... gens)
{
    if constexpr (sizeof...(gens) == 0)
        return rc::gen::just(Step(What{}));
    else
        return rc::gen::apply([](auto... values) { return Step(What{values...}); }, gens...);
}

template <class Value>
rc::Gen<std::optional<Value>> perhaps(rc::Gen<Value> gen)
{
    return rc::gen::apply(
        [](bool isThere, const Value& value) { return isThere ? std::optional<Value>(value) : std::nullopt; },
        mostly(), gen);
}

rc::Gen<FileNode> fileNode()
{
    return rc::gen::apply(
        [](const std::string& name, bool isSensor, bool isInside, double cycleInterval, bool isLooping,
           bool isEnabled, double startTime, double stopTime) {
            return FileNode{name,      isSensor,  isInside,  cycleInterval,
                            isLooping, isEnabled, startTime, stopTime};
        },
        among(names), mostly(), either(), among<double>({1.0, 0.5, 2.5}), either(), mostly(),
        among<double>({0.0, 3.0}), among<double>({0.0, 3.0, 4.0}));
}

rc::Gen<SceneFile> sceneFile()
{
    return rc::gen::resize(8, rc::gen::container<SceneFile>(fileNode()));
}

/// Groups of four, with repetitions, and what is left over.
rc::Gen<std::vector<std::string>> strings()
{
    using Group = std::tuple<std::string, std::string, std::string, std::string>;
    const auto group = rc::gen::tuple(among(names), among(comments), among(hotkeys), among(hotkeys));
    return rc::gen::apply(
        [](const std::vector<Group>& groups, unsigned rest) {
            std::vector<std::string> all;
            for (const auto& [name, comment, start, stop] : groups)
                all.insert(all.end(), {name, comment, start, stop});
            all.resize(all.size() + rest, "rest");
            return all;
        },
        rc::gen::resize(6, rc::gen::container<std::vector<Group>>(group)), number(4));
}

/// Mostly a list, as it should be.
rc::Gen<Attribute> settings()
{
    return rc::gen::apply(
        [](bool isList, const std::vector<std::string>& list) {
            return isList ? Attribute(list) : Attribute(std::string("no list"));
        },
        mostly(), strings());
}

rc::Gen<Attributes> attributes()
{
    return rc::gen::apply(
        [](const std::optional<Attribute>& own, const std::optional<Attribute>& others) {
            Attributes all;
            if (own)
                all["Animations"] = *own;
            if (others)
                all["Note"] = *others;
            return all;
        },
        perhaps(settings()), perhaps(settings()));
}

rc::Gen<QString> text(const std::vector<std::string>& all)
{
    return rc::gen::map(among(all),
                        [](const std::string& bytes) { return QString::fromUtf8(bytes.c_str()); });
}

/// The empty text and the one that was never set are two.
rc::Gen<QString> rowText()
{
    return rc::gen::apply([](bool isThere, const QString& text) { return isThere ? text : QString(); },
                          either(), text(names));
}

/// Often one row alone, since that is the one whose properties are shown.
rc::Gen<unsigned> rowBits()
{
    return rc::gen::apply([](bool isOne, unsigned bits) { return isOne ? 1U << (bits % 6) : bits; }, mostly(),
                          number());
}

rc::Gen<Step> scriptCall()
{
    return rc::gen::apply(
        [](int function, bool isPrefixed, bool isRight, int arguments, const std::string& name) {
            const bool isGet = function == ScriptCall::Get;
            const Arguments right = isGet ? Arguments::Missing : Arguments::Name;
            return Step(ScriptCall{static_cast<ScriptCall::Function>(function), isPrefixed,
                                   isRight ? right : static_cast<Arguments>(arguments), name});
        },
        rc::gen::inRange(0, static_cast<int>(ScriptCall::LastFunction) + 1), either(), either(),
        rc::gen::inRange(0, static_cast<int>(Arguments::Last) + 1), among(names));
}

std::vector<const char*> projectsAnd(std::vector<const char*> others)
{
    others.insert(others.begin(), projects.begin(), projects.end());
    return others;
}

rc::Gen<Step> sceneStep()
{
    return rc::gen::oneOf(
        step<AddNode>(among<const char*>({"TimeSensor", "RecordingSensor", "OtherCore", ""}),
                      perhaps<std::string>(among(names)), number(16)),
        step<RemoveNode>(number(16)), step<RenameNode>(number(16), among(names), mostly()), step<EndTurn>(),
        step<Run>(among<double>({0.125, 0.0, 1.0, 2.5}), among<double>({1.0, 4.0}), road()));
}

rc::Gen<Step> messageStep()
{
    return rc::gen::weightedOneOf<Step>(
        {{6, step<Message>(among(messages), among(names), road())},
         {1, step<OddMessage>(among(messages))},
         {4, step<Deliver>(among<std::uint32_t>({32768, 16, 8192, 17, 4}))},
         {6, step<PressKey>(among<int>({'A', 'A', 'S', '1', 'F', 0, Qt::Key_Space}),
                            among<int>({0, 0, 0x02000000, 0x0C000000, 0x04000000}))}});
}

rc::Gen<Step> panelStep()
{
    return rc::gen::weightedOneOf<Step>(
        {{5, step<SelectRows>(rowBits())},
         {2, step<PressInList>(among<int>({Qt::Key_Return, Qt::Key_Space, Qt::Key_R, Qt::Key_Delete}))},
         {3, step<ChooseEntry>(rc::gen::inRange(0, 7))},
         {1, step<DoubleClick>(number(8))},
         {3, step<RenameRow>(number(8), rowText())},
         {2, step<TypeComment>(text(comments))},
         {3, step<ChooseItem>(number(4), number(37))},
         {1, step<TurnCycleInterval>(rc::gen::map(number(), [](unsigned n) { return n * 0.5 - 1.0; }))},
         {1, step<TurnFraction>(rc::gen::map(number(70), [](unsigned n) { return n / 64.0; }))}});
}

rc::Gen<Step> fileStep()
{
    return rc::gen::weightedOneOf<Step>(
        {{2, step<WriteScene>(among<const char*>({"a.wrl", "b.wrl", "c.wrl"}), sceneFile())},
         {3,
          step<WriteProject>(among(projects), among<const char*>({"a.wrl", "b.wrl", "", "c.wrl", "gone.wrl"}),
                             attributes())},
         {6, step<Open>(among(projectsAnd({"a.wrl", "b.wrl", "c.wrl", "gone.wrl", HostModel::brokenScene})),
                        road())},
         {1, step<OpenWithScene>(among(projects), among(scenes))},
         {5, step<Save>(among(projectsAnd({"notes.txt"})), road())},
         {1, step<Close>()},
         {2, step<TellSettings>(perhaps(settings()))}});
}

rc::Gen<Step> scriptStep()
{
    return rc::gen::weightedOneOf<Step>(
        {{6, scriptCall()},
         {2,
          step<AskHost>(among<AskHost::Question>({AskHost::Selection, AskHost::Sensors, AskHost::Project}))},
         {1, step<SelectNodes>(
                 rc::gen::resize(3, rc::gen::container<std::vector<std::string>>(among(names))))}});
}

} // namespace

rc::Gen<Sequence> anySequence()
{
    const auto any = rc::gen::weightedOneOf<Step>(
        {{4, sceneStep()}, {4, messageStep()}, {8, panelStep()}, {5, fileStep()}, {4, scriptStep()}});
    return rc::gen::map(rc::gen::container<std::vector<Step>>(any),
                        [](std::vector<Step> steps) { return Sequence{std::move(steps)}; });
}

SceneFile firstScene()
{
    SceneFile scene;
    for (const std::string& name : names) {
        FileNode node;
        node.name = name;
        scene.push_back(node);
    }
    return scene;
}

} // namespace kt::test
