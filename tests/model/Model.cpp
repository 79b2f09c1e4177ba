#include "tests/model/Model.h"

#include <Qt>

#include <algorithm>
#include <map>

namespace kt::test
{
namespace
{

std::string latin1(const QString& text)
{
    return text.toLatin1().constData();
}

std::string utf8(const QString& text)
{
    return text.toUtf8().constData();
}

QString fromUtf8(const std::string& text)
{
    return QString::fromUtf8(text.c_str());
}

} // namespace

void Model::Box::show(const QString& text)
{
    if (items.contains(text))
        shown = text;
}

Model::Model()
{
    const QStringList modifiers{"", "Shift", "Ctrl", "Alt", "Shift-Ctrl", "Shift-Alt", "Alt-Ctrl"};
    QStringList keys{""};
    for (const char key : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"))
        keys << QString(QLatin1Char(key));
    panel.startModifier.items = panel.stopModifier.items = modifiers;
    panel.startKey.items = panel.stopKey.items = keys;
}

template <class Action>
void Model::forSensors(const std::string& name, Action action)
{
    for (Node& node : scene) {
        if (node.isSensor && node.name == name)
            action(node.sensor);
    }
}

Model::Record* Model::find(const QString& name)
{
    for (Record& record : _records) {
        if (record.name == name)
            return &record;
    }
    return nullptr;
}

void Model::removeFirst(const QString& name)
{
    const auto isSought = [&](const Record& record) { return record.name == name; };
    const auto found = std::find_if(_records.begin(), _records.end(), isSought);
    if (found != _records.end())
        _records.erase(found);
}

void Model::run(Sensor& sensor, double elapsed) const
{
    sensor.time = now;
    sensor.startTime = now - elapsed;
    sensor.isActive = true;
    sensor.isStopped = false;
}

void Model::start(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) { run(sensor, 0.0); });
}

void Model::stop(const std::string& name)
{
    forSensors(name, [](Sensor& sensor) { sensor.isActive = false; });
}

void Model::resume(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        if (!sensor.isActive)
            run(sensor, sensor.time - sensor.startTime);
    });
}

void Model::toggle(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        if (sensor.isActive)
            sensor.isActive = false;
        else
            run(sensor, sensor.time - sensor.startTime);
    });
}

void Model::reset(const std::string& name)
{
    forSensors(name, [this](Sensor& sensor) {
        sensor.time = sensor.startTime = now;
        sensor.fraction = 0.0F;
        sensor.isActive = false;
        sensor.isStopped = true;
    });
}

void Model::clear()
{
    _records.clear();
    _current = nullptr;
    rows.clear();
    selected.clear();
    showProperties();
}

void Model::scan()
{
    std::list<QString> gone;
    for (const Record& record : _records)
        gone.push_back(record.name);
    for (const Node& node : scene) {
        if (!node.isSensor)
            continue;
        const QString name = fromUtf8(node.name);
        gone.remove(name);
        if (!find(name))
            _records.push_back({name, {}, {}, {}});
    }
    for (const QString& name : gone)
        removeFirst(fromUtf8(latin1(name)));
    _current = nullptr;
    showList();
    showProperties();
}

void Model::load(const std::vector<std::string>& strings)
{
    _records.clear();
    _current = nullptr;
    for (std::size_t i = 0; i + 4 <= strings.size(); i += 4) {
        if (!find(fromUtf8(strings[i])))
            _records.push_back({fromUtf8(strings[i]), fromUtf8(strings[i + 1]),
                                hotkeyOf(fromUtf8(strings[i + 2])), hotkeyOf(fromUtf8(strings[i + 3]))});
    }
    showList();
    showProperties();
}

std::vector<std::string> Model::saved() const
{
    std::vector<std::string> strings;
    for (const Record& record : _records) {
        if (!record.name.isNull())
            strings.insert(strings.end(), {utf8(record.name), utf8(record.comment), utf8(record.start.text),
                                           utf8(record.stop.text)});
    }
    return strings;
}

void Model::pressKey(int key, int modifiers)
{
    for (const Record& record : _records) {
        if (record.start.key == key && record.start.modifiers == modifiers)
            start(latin1(record.name));
        else if (record.stop.key == key && record.stop.modifiers == modifiers)
            toggle(latin1(record.name));
    }
}

void Model::select(const std::set<int>& chosen)
{
    if (chosen == selected)
        return;
    selected = chosen;
    _current = selected.size() == 1 ? find(fromUtf8(latin1(rows[*selected.begin()]))) : nullptr;
    showProperties();
}

void Model::forSelected(Operation operation)
{
    for (const int row : selected)
        (this->*operation)(latin1(rows[row]));
}

void Model::removeSelected()
{
    for (const int row : selected)
        removeFirst(fromUtf8(latin1(rows[row])));
    _current = nullptr;
    showList();
    showProperties();
}

void Model::showList()
{
    rows.clear();
    selected.clear();
    for (const Record& record : _records)
        rows << record.name;
}

void Model::showProperties()
{
    panel.isEnabled = _current != nullptr;
    if (!_current) {
        panel.comment.clear();
        return;
    }
    panel.stopModifier.show(_current->stop.text.section(' ', 0, 0));
    panel.stopKey.show(_current->stop.text.section(' ', 1, 1));
    panel.startModifier.show(_current->start.text.section(' ', 0, 0));
    panel.startKey.show(_current->start.text.section(' ', 1, 1));
    typeComment(_current->comment);
    forSensors(utf8(_current->name),
               [this](const Sensor& sensor) { panel.cycleInterval = sensor.cycleInterval; });
}

void Model::typeComment(const QString& text)
{
    if (text == panel.comment)
        return;
    panel.comment = text;
    if (_current)
        _current->comment = fromUtf8(latin1(text));
}

void Model::chooseStart()
{
    if (_current)
        _current->start = hotkeyOf(panel.startModifier.shown + ' ' + panel.startKey.shown);
}

void Model::chooseStop()
{
    if (_current)
        _current->stop = hotkeyOf(panel.stopModifier.shown + ' ' + panel.stopKey.shown);
}

void Model::setCycleInterval(double value)
{
    if (value == panel.cycleInterval)
        return;
    panel.cycleInterval = value;
    if (_current)
        forSensors(utf8(_current->name), [value](Sensor& sensor) { sensor.cycleInterval = value; });
}

void Model::setFraction(double value)
{
    if (value == panel.fraction)
        return;
    panel.fraction = value;
    if (_current)
        forSensors(utf8(_current->name),
                   [value](Sensor& sensor) { sensor.fraction = static_cast<float>(value); });
}

Model::Hotkey Model::hotkeyOf(const QString& text)
{
    static const std::map<QString, int> words{{"SHIFT", 0x02000000},     {"CTRL", 0x04000000},
                                              {"ALT", 0x08000000},       {"SHIFT-CTRL", 0x06000000},
                                              {"SHIFT-ALT", 0x0A000000}, {"ALT-CTRL", 0x0C000000}};
    const QStringList parts = text.toUpper().split(' ');
    const bool hasKey = parts.size() > 1 && !parts[1].isEmpty();
    const QString word = hasKey ? parts[0] : QString();
    const QString keyText = hasKey ? parts[1] : parts[0];
    Hotkey hotkey{text, 0, 0};
    if (words.count(word) != 0)
        hotkey.modifiers = words.at(word);
    const ushort first = keyText.isEmpty() ? ushort(0) : keyText[0].unicode();
    if ((first >= 'A' && first <= 'Z') || (first >= '0' && first <= '9'))
        hotkey.key = first;
    return hotkey;
}

} // namespace kt::test
