#include "fuzz/PluginRig.h"

#include "fuzz/Expect.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>

#include <QApplication>

#include <dlfcn.h>

namespace kt::fuzz
{
namespace
{

const char* const loading = "_loading";
const char* const settingsKey = "Animations";

/// Once a process; the plug-in stays loaded, so all of this does.
void makeApplication()
{
    if (qApp)
        return;
    static int count = 1;
    static char name[] = "fuzz";
    static char* words[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(count, words);
}

} // namespace

bool PluginRig::Moment::operator==(const Moment& other) const
{
    return name == other.name && time == other.time && startTime == other.startTime &&
           fraction == other.fraction && isActive == other.isActive && isStopped == other.isStopped;
}

PluginRig& PluginRig::instance()
{
    makeApplication();
    static auto* const rig = new PluginRig;
    return *rig;
}

PluginRig::PluginRig()
{
    ktController::setMainWindow(&_window, &_docks);
    void* const library = dlopen(KT_PLUGIN_FILE, RTLD_NOW | RTLD_LOCAL);
    expect(library != nullptr, "the plug-in is there");
    reinterpret_cast<void (*)()>(dlsym(library, "initPlugin"))();
    _list = ktModuleBase::modules().at(0)->getWidget()->findChild<QListWidget*>("_animationList");
}

void PluginRig::reset()
{
    while (!_nodes.empty())
        removeNode(0);
    _scene.changes.clear();
    ktFileIO::clearProject();
    ktController::setSimulationTime(0.0);
    deliver(16);
    test::LogRecorder::lines().clear();
}

void PluginRig::addSensor(const std::string& name)
{
    _nodes.push_back(_scene.addNode(name.c_str(), osg::TimeSensor::create()));
}

void PluginRig::removeNode(std::size_t place)
{
    _scene.root()->subChild(_nodes.at(place));
    _nodes.erase(_nodes.begin() + static_cast<std::ptrdiff_t>(place));
}

void PluginRig::renameNode(std::size_t place, const std::string& name)
{
    ktScenegraph::setNodeName(true, _nodes.at(place), name.c_str(), true);
}

void PluginRig::passTime(double seconds)
{
    ktController::setSimulationTime(ktController::getSimulationTime() + seconds);
}

std::vector<PluginRig::Moment> PluginRig::moments() const
{
    std::vector<Moment> moments;
    for (const osg::NodePtr& node : _nodes) {
        const auto& sensor = static_cast<const osg::TimeSensor&>(*node->getCore());
        moments.push_back({NodeUtils::getName(node), sensor.getTime(), sensor.getStartTime(),
                           sensor.getFraction(), sensor.isActive(), sensor.isStopped()});
    }
    return moments;
}

void PluginRig::load(const boost::any& settings)
{
    ktFileIO::getProject().set(loading, true, false);
    ktFileIO::getProject().set(settingsKey, settings);
    deliver(8192);
}

void PluginRig::deliver(std::uint32_t id)
{
    ktMessage message(id);
    ktController::deliver(message);
}

void PluginRig::select(int row)
{
    const QModelIndex index = row < _list->count() ? _list->model()->index(row, 0) : QModelIndex();
    _list->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
}

std::vector<std::string> PluginRig::saved()
{
    ktMessage& project = ktFileIO::getProject();
    const boost::any loadingBefore = project.get(loading);
    const boost::any settingsBefore = project.get(settingsKey);
    project.set(loading, false, false);
    deliver(8192);
    std::vector<std::string> strings;
    expect(project.get(settingsKey, strings), "a save writes the settings");
    project.set(loading, loadingBefore, false);
    project.set(settingsKey, settingsBefore);
    return strings;
}

void PluginRig::check() const
{
    const std::vector<std::string> strings = saved();
    expect(strings.size() == static_cast<std::size_t>(_list->count()) * 4, "a row for each record");
    for (int row = 0; row < _list->count(); ++row) {
        const QByteArray text = _list->item(row)->text().toUtf8();
        expect(strings[static_cast<std::size_t>(row) * 4] == text.constData(), "the rows have the names");
    }
    for (const std::string& line : test::LogRecorder::lines())
        expect(line.rfind("error", 0) != 0, line.c_str());
}

} // namespace kt::fuzz
