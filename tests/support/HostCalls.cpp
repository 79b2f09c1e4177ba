#include "tests/support/HostCalls.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktIconManager.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktScenegraph.h>
#include <qkt/QKTDockWindowManager.h>

#include <QIcon>
#include <QWidget>

#include <dlfcn.h>

#include <stdexcept>

namespace kt::test
{

void HostCalls::reset()
{
    lines().clear();
    onCall() = nullptr;
    clockStep() = 0.0;
}

std::vector<std::string>& HostCalls::lines()
{
    static auto* const all = new std::vector<std::string>;
    return *all;
}

std::vector<std::string> HostCalls::linesOf(const std::vector<std::string>& words)
{
    std::vector<std::string> wanted;
    for (const std::string& line : lines()) {
        for (const std::string& word : words) {
            if (line.compare(0, word.size(), word) == 0)
                wanted.push_back(line);
        }
    }
    return wanted;
}

std::function<void(const std::string&)>& HostCalls::onCall()
{
    static auto* const callback = new std::function<void(const std::string&)>;
    return *callback;
}

void HostCalls::throwAt(const std::string& line)
{
    onCall() = [line](const std::string& called) {
        if (called == line)
            throw std::runtime_error("thrown at " + line);
    };
}

double& HostCalls::clockStep()
{
    static double step = 0.0;
    return step;
}

} // namespace kt::test

namespace
{

using kt::test::HostCalls;

void note(const std::string& line)
{
    HostCalls::lines().push_back(line);
    if (HostCalls::onCall())
        HostCalls::onCall()(line);
}

/// The host's own function of this symbol, which ours hides.
template <class Function>
Function real(const char* symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

using NamedCB = void (*)(const char*, ktController::MessageCB);
using KeyCB = void (*)(ktOSGWidget::PressKeyCB);

std::string joined(const std::vector<std::string>& names)
{
    std::string text = "[";
    for (const std::string& name : names)
        text += name + ";";
    return text + "]";
}

} // namespace

void ktController::addCB(const char* name, MessageCB callback)
{
    note(std::string("addCB ") + name);
    real<NamedCB>("_ZN12ktController5addCBEPKcPFvR9ktMessageE")(name, callback);
}

void ktController::subCB(const char* name, MessageCB callback)
{
    note(std::string("subCB ") + name);
    real<NamedCB>("_ZN12ktController5subCBEPKcPFvR9ktMessageE")(name, callback);
}

QMainWindow* ktController::getMainWindow()
{
    note("getMainWindow");
    return real<QMainWindow* (*)()>("_ZN12ktController13getMainWindowEv")();
}

double ktController::getSimulationTime()
{
    note("getSimulationTime");
    const double now = real<double (*)()>("_ZN12ktController17getSimulationTimeEv")();
    ktController::setSimulationTime(now + HostCalls::clockStep());
    return now;
}

void ktOSGWidget::addMGLWPressKeyCB(PressKeyCB callback)
{
    note("addMGLWPressKeyCB");
    real<KeyCB>("_ZN11ktOSGWidget17addMGLWPressKeyCBEPFviiiP6QEventE")(callback);
}

void ktOSGWidget::subMGLWPressKeyCB(PressKeyCB callback)
{
    note("subMGLWPressKeyCB");
    real<KeyCB>("_ZN11ktOSGWidget17subMGLWPressKeyCBEPFviiiP6QEventE")(callback);
}

QDockWidget* QKTDockWindowManager::add(const char* name, const QString& group, QWidget* widget,
                                       const QString& help, const QIcon& icon, const QString& title,
                                       Qt::DockWidgetArea area, bool visible, QMenu* menu)
{
    note(QString("dock %1|%2|%3|%4|%5|%6|%7|%8|%9")
             .arg(name, group, widget->objectName(), help, icon.isNull() ? "no icon" : "icon", title)
             .arg(int(area))
             .arg(visible)
             .arg(menu ? "menu" : "no menu")
             .toStdString());
    using Add = QDockWidget* (*)(QKTDockWindowManager*, const char*, const QString&, QWidget*, const QString&,
                                 const QIcon&, const QString&, Qt::DockWidgetArea, bool, QMenu*);
    return real<Add>(
        "_ZN20QKTDockWindowManager3addEPKcRK7QStringP7QWidgetS4_RK5QIconS4_N2Qt14DockWidgetAreaEbP5QMenu")(
        this, name, group, widget, help, icon, title, area, visible, menu);
}

QIcon ktIconManager::getIcon(const std::string& name, const std::string& variant)
{
    note("getIcon " + name + "|" + variant);
    using GetIcon = QIcon (*)(const std::string&, const std::string&);
    return real<GetIcon>(
        "_ZN13ktIconManager7getIconERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEES7_")(name,
                                                                                                variant);
}

ktNodePtr ktScenegraph::getRootNode()
{
    note("getRootNode");
    return real<ktNodePtr (*)()>("_ZN12ktScenegraph11getRootNodeEv")();
}

std::vector<ktNodePtr> ktScenegraph::findNodes(const char* name)
{
    note(std::string("findNodes ") + (name ? name : "(null)"));
    return real<std::vector<ktNodePtr> (*)(const char*)>("_ZN12ktScenegraph9findNodesEPKc")(name);
}

std::vector<ktNodePtr> ktScenegraph::findNodes(const std::vector<std::string>& names)
{
    note("findNodes " + joined(names));
    return real<std::vector<ktNodePtr> (*)(const std::vector<std::string>&)>(
        "_ZN12ktScenegraph9findNodesERKSt6vectorINSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEESaIS6_"
        "EE")(names);
}

void ktScenegraph::setNodeName(bool announce, const ktNodePtr& node, const char* name, bool record)
{
    note("setNodeName " + std::to_string(announce) + "|" + name + "|" + std::to_string(record));
    using SetNodeName = void (*)(bool, const ktNodePtr&, const char*, bool);
    real<SetNodeName>("_ZN12ktScenegraph11setNodeNameEbRK9ktNodePtrPKcb")(announce, node, name, record);
}

void ktScenegraph::scrollToNode(const ktNodePtr& node)
{
    note("scrollToNode");
    real<void (*)(const ktNodePtr&)>("_ZN12ktScenegraph12scrollToNodeERK9ktNodePtr")(node);
}

ktMessage& ktFileIO::getProject()
{
    note("getProject");
    return real<ktMessage& (*)()>("_ZN8ktFileIO10getProjectEv")();
}
