// What can be seen of the host and the module, beside what the model says.
#include "tests/model/Pair.h"
#include "tests/model/mustEqual.h"

#include "host/app/ProjectMessage.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <osg/TimeSensor.h>

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>

namespace kt::test
{
namespace
{

void compareSensor(const std::string& node, const osg::TimeSensor& is, const SceneModel::Sensor& expected)
{
    mustEqual(node + ", time", is.getTime(), expected.time);
    mustEqual(node + ", start time", is.getStartTime(), expected.startTime);
    mustEqual(node + ", cycle interval", is.getCycleInterval(), expected.cycleInterval);
    mustEqual(node + ", fraction", is.getFraction(), expected.fraction);
    mustEqual(node + ", active", is.isActive(), expected.isActive);
    mustEqual(node + ", stop", is.isStopped(), expected.isStopped);
    mustEqual(node + ", loop", is.isLooping(), expected.isLooping);
    mustEqual(node + ", enabled", is.isEnabled(), expected.isEnabled);
}

} // namespace

void Pair::compare()
{
    compareList();
    comparePanel();
    compareScene();
    compareSelection();
    compareProject();
    mustEqual("printed", host.printed.take(), model.module.printed);
    model.module.printed.clear();
    for (const std::string& line : host.log.lines()) {
        if (line.compare(0, 6, "error:") == 0)
            RC_FAIL("in the log: " + line);
    }
    host.log.lines().clear();
}

void Pair::compareList() const
{
    const QListWidget& list = host.list();
    QStringList rows;
    for (int i = 0; i < list.count(); ++i)
        rows << list.item(i)->text();
    mustEqual("the list", rows, model.module.rows);
    std::set<int> selected;
    for (const QModelIndex& index : list.selectionModel()->selectedIndexes())
        selected.insert(index.row());
    mustEqual("the selected rows", selected, model.module.selected);

    const QList<QAction*> entries = list.findChild<QMenu*>()->actions();
    for (int i = 0; i < entries.size(); ++i)
        mustEqual("entry " + std::to_string(i) + " of the menu, enabled", entries[i]->isEnabled(),
                  i > 4 || !model.module.selected.empty());
}

void Pair::comparePanel() const
{
    const ModuleModel::Panel& panel = model.module.panel;
    mustEqual("the comment", host.child<QLineEdit>("_comment").text(), panel.comment);
    mustEqual("the comment, enabled", host.child<QLineEdit>("_comment").isEnabled(), panel.isEnabled);
    const std::pair<const char*, const ModuleModel::Box*> boxes[] = {{"_startModifier", &panel.startModifier},
                                                                     {"_startKey", &panel.startKey},
                                                                     {"_stopModifier", &panel.stopModifier},
                                                                     {"_stopKey", &panel.stopKey}};
    for (const auto& [name, box] : boxes) {
        mustEqual(name, host.child<QComboBox>(name).currentText(), box->shown);
        mustEqual(std::string(name) + ", enabled", host.child<QComboBox>(name).isEnabled(), panel.isEnabled);
    }
    mustEqual("the wheel of the cycle interval", host.wheel("_cycle_interval").value(), panel.cycleInterval);
    mustEqual("the wheel of the fraction", host.wheel("_fraction").value(), panel.fraction);
}

void Pair::compareScene()
{
    mustEqual("the clock", ktController::getSimulationTime(), model.scene.now);
    mustEqual("a scene is open", bool(ktScenegraph::getRootNode()), model.scene.isOpen);
    const std::vector<Placed> present = nodes();
    mustEqual("the number of nodes", present.size(), model.scene.nodes.size());
    for (std::size_t i = 0; i < present.size(); ++i) {
        const SceneModel::Node& expected = model.scene.nodes[i];
        const osg::NodePtr& node = present[i].node;
        const std::string what = "node " + std::to_string(i);
        const char* name = NodeUtils::getName(node);
        mustEqual(what + ", name", std::string(name ? name : ""), expected.name());
        mustEqual(what + ", depth", present[i].depth, expected.depth);
        const auto* known = _known.emplace(expected.id, node.get()).first->second;
        mustEqual(what + ", the same as ever", known == node.get(), true);
        const bool isSensor = dynamic_cast<const osg::TimeSensor*>(node->getCore().get()) != nullptr;
        mustEqual(what + ", is a sensor", isSensor, expected.isSensor());
        if (isSensor)
            compareSensor(what, static_cast<const osg::TimeSensor&>(*node->getCore()), expected.sensor);
    }
}

void Pair::compareSelection() const
{
    std::vector<const osg::Node*> is;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes())
        is.push_back(node.operator->());
    std::vector<const osg::Node*> expected;
    for (const int id : model.scene.selected)
        expected.push_back(_known.at(id));
    mustEqual("the selected nodes", is, expected);
}

Attributes Pair::attributesOf(const ktMessage::Attributes& attributes)
{
    Attributes all;
    for (const auto& [name, value] : attributes) {
        if (const auto* list = boost::any_cast<std::vector<std::string>>(&value))
            all[name] = *list;
        else if (const auto* text = boost::any_cast<std::string>(&value))
            all[name] = *text;
        else
            all[name] = "of another type";
    }
    return all;
}

void Pair::compareProject()
{
    mustEqual("the scene's file", host.session.file(), model.sceneFile);
    mustEqual("the project's file", host.session.projectFile(), model.projectFile);
    mustEqual("modified", host.session.isModified(), model.isModified());
    mustEqual("the project", attributesOf(ktFileIO::getProject().attributes()), model.attributes);
    const kthost::ProjectProbe probe;
    kthost::tellModules(kthost::ProjectStep::Save);
    mustEqual("the settings", attributesOf(ktFileIO::getProject().attributes()), model.settings());
}

std::vector<Pair::Placed> Pair::nodes()
{
    std::vector<Placed> all;
    std::vector<Placed> pending;
    if (ktScenegraph::getRootNode())
        pending.push_back({ktScenegraph::getRootNode(), 0});
    while (!pending.empty()) {
        const Placed next = pending.back();
        pending.pop_back();
        if (next.depth > 0)
            all.push_back(next);
        for (std::size_t i = next.node->getNChildren(); i > 0; --i)
            pending.push_back({next.node->getChild(i - 1), next.depth + 1});
    }
    return all;
}

} // namespace kt::test
