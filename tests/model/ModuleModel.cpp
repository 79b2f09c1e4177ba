#include "tests/model/ModuleModel.h"

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

void ModuleModel::Box::show(const QString& text)
{
    if (items.contains(text))
        shown = text;
}

ModuleModel::ModuleModel(SceneModel& scene) : _scene(scene)
{
    const QStringList modifiers{"", "Shift", "Ctrl", "Alt", "Shift-Ctrl", "Shift-Alt", "Alt-Ctrl"};
    QStringList keys{""};
    for (const char key : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"))
        keys << QString(QLatin1Char(key));
    panel.startModifier.items = panel.stopModifier.items = modifiers;
    panel.startKey.items = panel.stopKey.items = keys;
}

ModuleModel::Record* ModuleModel::find(const QString& name)
{
    for (Record& record : _records) {
        if (record.name == name)
            return &record;
    }
    return nullptr;
}

void ModuleModel::removeFirst(const QString& name)
{
    const auto isSought = [&](const Record& record) { return record.name == name; };
    const auto found = std::find_if(_records.begin(), _records.end(), isSought);
    if (found != _records.end())
        _records.erase(found);
}

void ModuleModel::clear()
{
    _records.clear();
    _current = nullptr;
    rows.clear();
    selected.clear();
    showProperties();
}

void ModuleModel::scan()
{
    std::set<const Record*> unmatched;
    for (const Record& record : _records)
        unmatched.insert(&record);
    for (const SceneModel::Node& node : _scene.nodes) {
        if (!node.isSensor())
            continue;
        const QString name = fromUtf8(node.name());
        if (const Record* const known = find(name))
            unmatched.erase(known);
        else
            _records.push_back({name, {}, {}, {}});
    }
    QStringList gone;
    for (const Record* record : unmatched)
        gone << record->name;
    for (const QString& name : gone)
        removeFirst(fromUtf8(latin1(name)));
    _current = nullptr;
    showList();
    showProperties();
}

void ModuleModel::load(const std::vector<std::string>& strings)
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

std::vector<std::string> ModuleModel::saved() const
{
    std::vector<std::string> strings;
    for (const Record& record : _records) {
        if (!record.name.isNull())
            strings.insert(strings.end(), {utf8(record.name), utf8(record.comment), utf8(record.start.text),
                                           utf8(record.stop.text)});
    }
    return strings;
}

bool ModuleModel::pressKey(int key, int modifiers)
{
    bool isHit = false;
    for (const Record& record : _records) {
        const bool starts = record.start.key == key && record.start.modifiers == modifiers;
        const bool stops = record.stop.key == key && record.stop.modifiers == modifiers;
        if (starts)
            _scene.start(latin1(record.name));
        else if (stops)
            _scene.toggle(latin1(record.name));
        isHit = isHit || starts || stops;
    }
    return isHit;
}

std::vector<std::string> ModuleModel::latin1Names() const
{
    std::vector<std::string> names;
    for (const Record& record : _records)
        names.push_back(latin1(record.name));
    return names;
}

void ModuleModel::select(const std::set<int>& chosen)
{
    if (chosen == selected)
        return;
    selected = chosen;
    _current = selected.size() == 1 ? find(fromUtf8(latin1(rows[*selected.begin()]))) : nullptr;
    showProperties();
}

std::vector<std::string> ModuleModel::selectedNames() const
{
    std::vector<std::string> names;
    for (const int row : selected)
        names.push_back(latin1(rows[row]));
    return names;
}

void ModuleModel::startSelected()
{
    for (const std::string& name : selectedNames()) {
        _scene.start(name);
        printed += "Playing " + name + '\n';
    }
}

void ModuleModel::forSelected(SceneModel::Operation operation)
{
    for (const std::string& name : selectedNames())
        (_scene.*operation)(name);
}

void ModuleModel::showSelectedNodes()
{
    _scene.select(selectedNames(), false);
}

void ModuleModel::removeSelected()
{
    for (const std::string& name : selectedNames())
        removeFirst(fromUtf8(name));
    _current = nullptr;
    showList();
    showProperties();
}

void ModuleModel::renameRow(int row, const QString& text)
{
    if (rows[row] != text) // the list keeps a text that was never set where it gets an empty one
        rows[row] = text;
    if (!_current)
        return;
    const std::string before = latin1(_current->name);
    _current->name = rows[row];
    for (std::size_t place = 0; place < _scene.nodes.size(); ++place) {
        if (_scene.nodes[place].isSensor() && _scene.nodes[place].name() == before)
            _scene.rename(place, utf8(text));
    }
}

void ModuleModel::showList()
{
    rows.clear();
    selected.clear();
    for (const Record& record : _records)
        rows << record.name;
}

void ModuleModel::showProperties()
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
    _scene.forSensors(utf8(_current->name), [this](const SceneModel::Sensor& sensor) {
        panel.cycleInterval = sensor.cycleInterval;
    });
}

void ModuleModel::typeComment(const QString& text)
{
    if (text == panel.comment)
        return;
    panel.comment = text;
    if (_current)
        _current->comment = fromUtf8(latin1(text));
}

void ModuleModel::chooseStart()
{
    if (_current)
        _current->start = hotkeyOf(panel.startModifier.shown + ' ' + panel.startKey.shown);
}

void ModuleModel::chooseStop()
{
    if (_current)
        _current->stop = hotkeyOf(panel.stopModifier.shown + ' ' + panel.stopKey.shown);
}

void ModuleModel::setCycleInterval(double turned)
{
    const double value = std::max(turned, 0.0);
    if (value == panel.cycleInterval)
        return;
    panel.cycleInterval = value;
    if (_current)
        _scene.forSensors(utf8(_current->name),
                          [value](SceneModel::Sensor& sensor) { sensor.cycleInterval = value; });
}

void ModuleModel::setFraction(double turned)
{
    const double value = std::min(std::max(turned, 0.0), 1.0);
    if (value == panel.fraction)
        return;
    panel.fraction = value;
    if (_current)
        _scene.forSensors(utf8(_current->name), [value](SceneModel::Sensor& sensor) {
            sensor.fraction = static_cast<float>(value);
        });
}

ModuleModel::Hotkey ModuleModel::hotkeyOf(const QString& text)
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
