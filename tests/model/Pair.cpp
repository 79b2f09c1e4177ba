#include "tests/model/Pair.h"

#include <kt/ktOSGWidget.h>
#include <kt/ktScenegraph.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <map>

namespace kt::test
{
namespace
{

template <class Value, std::size_t Count>
const Value& oneOf(const Value (&values)[Count], unsigned number)
{
    return values[number % Count];
}

// Names whose bytes in one encoding are those of another name in the other are among them.
const std::string names[] = {"Door", "\xC3\xBC", "\xC3\x83\xC2\xBC", "\xE6\x89\x89", "?", "", "door"};
const char* const comments[] = {"",  "front door", "\xC3\xA9", "\xE6\x89\x89", "\xC3\x83\xC2\xA9",
                                "?", "two  words"};
// Few keys, so that they meet.
const char* const hotkeys[] = {"A",        "Shift A",    " a", "Alt-Ctrl 1", "",
                               "Shift  B", "Ctrl-Alt A", "F1", "\xC3\xA9"};
const char* const messages[] = {"animationStart", "animationStop",     "animationToggle",
                                "animationPause", "animationContinue", "animationReset"};
const Model::Operation operations[] = {&Model::start, &Model::stop,   &Model::toggle,
                                       &Model::stop,  &Model::resume, &Model::reset};
const int keys[] = {'A', 'A', 'S', '1', 'F', 0, Qt::Key_Space};
const int modifiers[] = {0, 0, 0x02000000, 0x0C000000, 0x04000000};

} // namespace

Pair::Pair()
{
    init();
    model.panel.cycleInterval = wheel("_cycle_interval").value();
    model.panel.fraction = wheel("_fraction").value();
    for (const std::string& name : names)
        addNode(name, true);
    deliver(32768);
    model.scan();
}

void Pair::addNode(const std::string& name, bool isSensor)
{
    const osg::NodeCorePtr core =
        isSensor ? osg::NodeCorePtr(osg::TimeSensor::create()) : OtherCore::create();
    nodes.push_back(scene.addNode(name.c_str(), core));
    model.scene.push_back({name, isSensor, {}});
    if (isSensor) {
        const auto& sensor = static_cast<osg::TimeSensor&>(*nodes.back()->getCore());
        model.scene.back().sensor.cycleInterval = sensor.getCycleInterval();
    }
}

void Pair::load(const Step& step)
{
    std::vector<std::string> strings;
    for (unsigned i = 0; i < step.a % 4; ++i) {
        strings.push_back(oneOf(names, step.b + i * 3));
        strings.emplace_back(oneOf(comments, step.c + i));
        strings.emplace_back(oneOf(hotkeys, step.b + i));
        strings.emplace_back(oneOf(hotkeys, step.b + step.c % 3));
    }
    strings.resize(strings.size() + step.c % 4, "rest");
    ktFileIO::getProject().set("Animations", strings, true);
    ktFileIO::getProject().set("_loading", true, false);
    deliver(8192);
    model.load(strings);
}

void Pair::select(const Step& step)
{
    std::set<int> rows;
    QItemSelection selection;
    for (int row = 0; row < list().count(); ++row) {
        if (((step.a >> (row % 6)) & 1U) == 0)
            continue;
        rows.insert(row);
        selection.select(list().model()->index(row, 0), list().model()->index(row, 0));
    }
    list().selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    model.select(rows);
}

void Pair::pressInList(const Step& step)
{
    static const std::map<int, Model::Operation> playback{
        {Qt::Key_Return, &Model::start}, {Qt::Key_Space, &Model::toggle}, {Qt::Key_R, &Model::reset}};
    const int key = oneOf<int>({Qt::Key_Return, Qt::Key_Space, Qt::Key_R, Qt::Key_Delete}, step.a);
    QTest::keyClick(&list(), static_cast<Qt::Key>(key));
    if (key == Qt::Key_Delete)
        model.removeSelected();
    else
        model.forSelected(playback.at(key));
}

void Pair::chooseEntry(const Step& step)
{
    QMenu& menu = *list().findChild<QMenu*>();
    const unsigned entry = step.a % 7;
    QAction* const action = menu.actions().at(static_cast<int>(entry));
    RC_ASSERT(action->isEnabled() == (entry > 4 || !model.selected.empty()));
    if (!action->isEnabled())
        return;
    action->trigger();
    switch (entry) {
    case 0:
        model.forSelected(&Model::start);
        break;
    case 1:
        model.forSelected(&Model::toggle);
        break;
    case 2:
        model.forSelected(&Model::reset);
        break;
    case 4:
        model.removeSelected();
        break;
    case 5:
        model.scan();
        break;
    case 6:
        model.clear();
        break;
    default:
        break;
    }
}

void Pair::chooseItem(const Step& step)
{
    Model::Box* const boxes[] = {&model.panel.startModifier, &model.panel.startKey, &model.panel.stopModifier,
                                 &model.panel.stopKey};
    const char* const boxNames[] = {"_startModifier", "_startKey", "_stopModifier", "_stopKey"};
    auto& box = *child<QComboBox>(oneOf(boxNames, step.a));
    if (!box.isEnabled())
        return;
    Model::Box& shown = *oneOf(boxes, step.a);
    const int item = static_cast<int>(step.b) % shown.items.size();
    box.setCurrentIndex(item);
    QMetaObject::invokeMethod(&box, "activated", Q_ARG(QString, box.currentText())); // it was the user
    shown.shown = shown.items[item];
    if (step.a % 4 < 2)
        model.chooseStart();
    else
        model.chooseStop();
}

void Pair::perform(const Step& step)
{
    const bool hasNodes = !nodes.empty();
    const std::size_t place = hasNodes ? step.a % nodes.size() : 0;
    switch (step.what) {
    case Do::AddSensor:
        addNode(oneOf(names, step.a), true);
        break;
    case Do::AddOther:
        addNode(oneOf(names, step.a), false);
        break;
    case Do::RemoveNode:
        if (!hasNodes)
            break;
        scene.root()->subChild(nodes[place]);
        nodes.erase(nodes.begin() + static_cast<std::ptrdiff_t>(place));
        model.scene.erase(model.scene.begin() + static_cast<std::ptrdiff_t>(place));
        break;
    case Do::RenameNode:
        if (!hasNodes)
            break;
        ktScenegraph::setNodeName(true, nodes[place], oneOf(names, step.b).c_str(), true);
        model.scene[place].name = oneOf(names, step.b);
        break;
    case Do::PassTime:
        model.now += step.a * 0.125;
        ktController::setSimulationTime(model.now);
        break;
    case Do::Clear:
        deliver(16);
        model.clear();
        break;
    case Do::Scan:
        deliver(32768);
        model.scan();
        break;
    case Do::Load:
        load(step);
        break;
    case Do::Message: {
        ktMessage message;
        message.set("animation-name", oneOf(names, step.b));
        ktController::sendMessage(oneOf(messages, step.a), message);
        if (!oneOf(names, step.b).empty())
            (model.*oneOf(operations, step.a))(oneOf(names, step.b));
        break;
    }
    case Do::Key:
        ktOSGWidget::pressKey(oneOf(keys, step.a), 0, oneOf(modifiers, step.b), nullptr);
        model.pressKey(oneOf(keys, step.a), oneOf(modifiers, step.b));
        break;
    case Do::Select:
        select(step);
        break;
    case Do::ListKey:
        pressInList(step);
        break;
    case Do::MenuEntry:
        chooseEntry(step);
        break;
    case Do::Comment:
        if (!child<QLineEdit>("_comment")->isEnabled())
            break;
        child<QLineEdit>("_comment")->setText(QString::fromUtf8(oneOf(comments, step.a)));
        model.typeComment(QString::fromUtf8(oneOf(comments, step.a)));
        break;
    case Do::Box:
        chooseItem(step);
        break;
    case Do::CycleInterval:
        wheel("_cycle_interval").setValue(step.a * 0.5);
        model.setCycleInterval(step.a * 0.5);
        break;
    case Do::Fraction:
        wheel("_fraction").setValue(step.a % 65 / 64.0);
        model.setFraction(step.a % 65 / 64.0);
        break;
    }
}

void Pair::compare()
{
    RC_ASSERT(rows() == model.rows);
    std::set<int> selected;
    for (const QModelIndex& index : list().selectionModel()->selectedIndexes())
        selected.insert(index.row());
    RC_ASSERT(selected == model.selected);

    const Model::Panel& panel = model.panel;
    RC_ASSERT(child<QLineEdit>("_comment")->text() == panel.comment);
    RC_ASSERT(child<QLineEdit>("_comment")->isEnabled() == panel.isEnabled);
    const std::pair<const char*, const Model::Box*> boxes[] = {{"_startModifier", &panel.startModifier},
                                                               {"_startKey", &panel.startKey},
                                                               {"_stopModifier", &panel.stopModifier},
                                                               {"_stopKey", &panel.stopKey}};
    for (const auto& [name, box] : boxes) {
        RC_ASSERT(child<QComboBox>(name)->currentText() == box->shown);
        RC_ASSERT(child<QComboBox>(name)->isEnabled() == panel.isEnabled);
    }
    RC_ASSERT(wheel("_cycle_interval").value() == panel.cycleInterval);
    RC_ASSERT(wheel("_fraction").value() == panel.fraction);

    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!model.scene[i].isSensor)
            continue;
        const auto& sensor = static_cast<osg::TimeSensor&>(*nodes[i]->getCore());
        const Model::Sensor& expected = model.scene[i].sensor;
        RC_ASSERT(sensor.getTime() == expected.time);
        RC_ASSERT(sensor.getStartTime() == expected.startTime);
        RC_ASSERT(sensor.getCycleInterval() == expected.cycleInterval);
        RC_ASSERT(sensor.getFraction() == expected.fraction);
        RC_ASSERT(sensor.isActive() == expected.isActive);
        RC_ASSERT(sensor.isStopped() == expected.isStopped);
    }

    ktFileIO::getProject().set("_loading", false, false);
    deliver(8192);
    std::vector<std::string> strings;
    RC_ASSERT(ktFileIO::getProject().get("Animations", strings));
    RC_ASSERT(strings == model.saved());
}

} // namespace kt::test
