#include "host/app/PluginLoader.h"

#include "host/app/Failures.h"
#include "host/app/LastWords.h"

#include <kt/ktController.h>
#include <kt/ktLog.h>
#include <kt/ktModuleBase.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <qkt/QKTDockWindowManager.h>

#include <QDir>
#include <QDockWidget>
#include <QMainWindow>

#include <dlfcn.h>

#include <algorithm>
#include <exception>

namespace kthost
{
namespace
{

using VersionFunction = const char* (*)();
using InitFunction = void (*)();

/// Why the library is none of ours; empty where it is.
QString refusal(QLibrary& library, InitFunction& init)
{
    // What a static object throws cannot be caught in earnest: the system's loader stays locked, and whoever
    // loads a library then, on any other thread, waits for ever.
    const auto loadOrEnd = [&library]() noexcept { return library.load(); };
    if (!loadOrEnd())
        return library.errorString().simplified();
    const auto version = reinterpret_cast<VersionFunction>(library.resolve("getPluginVersion"));
    init = reinterpret_cast<InitFunction>(library.resolve("initPlugin"));
    if (!version || !init)
        return QStringLiteral("it has no entry point '%1'").arg(version ? "initPlugin" : "getPluginVersion");
    const QString found = QString::fromUtf8(version());
    if (found != PluginLoader::hostVersion())
        return QStringLiteral("it is for version '%1', this host is version '%2'")
            .arg(found, PluginLoader::hostVersion());
    return {};
}

/// What `call` threw, as text; empty where it threw nothing.
template <class Call>
QString thrownBy(Call&& call)
{
    try {
        call();
        return {};
    } catch (const std::exception& error) {
        return QStringLiteral("it threw: %1").arg(QString::fromUtf8(error.what()).simplified());
    } catch (...) {
        return QStringLiteral("it threw an unknown exception");
    }
}

/// Where the code of a library is loaded; null for a place that is no code.
const void* baseOf(const void* place)
{
    Dl_info info{};
    return dladdr(place, &info) != 0 ? info.dli_fbase : nullptr;
}

/// No callback of the library is called any more, whether it took them back or not.
void dropCallbacksOf(QLibrary& library)
{
    const void* base = baseOf(reinterpret_cast<const void*>(library.resolve("initPlugin")));
    const auto isOfLibrary = [base](auto callback) {
        return baseOf(reinterpret_cast<const void*>(callback)) == base;
    };
    ktController::dropCallbacks(isOfLibrary);
    ktOSGWidget::dropCallbacks(isOfLibrary);
    ktPythonInit::dropCallbacks(isOfLibrary);
}

QList<QDockWidget*> presentDocks()
{
    const QMainWindow* window = ktController::getMainWindow();
    return window ? window->findChildren<QDockWidget*>() : QList<QDockWidget*>();
}

/// What a plug-in had docked before it failed belongs to an object that is gone.
void dropDocksBut(const QList<QDockWidget*>& known)
{
    for (QDockWidget* dock : presentDocks()) {
        if (!known.contains(dock))
            ktController::getDockWindowManager()->remove(dock->widget());
    }
}

} // namespace

PluginLoader::~PluginLoader()
{
    unloadAll();
}

QString PluginLoader::hostVersion()
{
    return QStringLiteral(KT_PLUGIN_VERSION);
}

QString PluginLoader::load(const QString& file)
{
    auto library = std::make_unique<QLibrary>(file);
    library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    InitFunction init = nullptr;
    QString why;
    QString thrownEarly;
    {
        const LastWords::While loading("plug-in " + file.toStdString() + ": it threw while it was loaded",
                                       static_cast<int>(ExitStatus::NoPlugin));
        thrownEarly = thrownBy([&] { why = refusal(*library, init); });
    }
    if (why.isEmpty())
        why = thrownEarly;
    if (!why.isEmpty()) {
        library->unload();
        return why;
    }

    const std::vector<ktModuleBase*> before = ktModuleBase::modules();
    const QList<QDockWidget*> docks = presentDocks();
    const QString thrown = thrownBy(init);
    if (!thrown.isEmpty()) {
        dropCallbacksOf(*library);
        dropDocksBut(docks);
        return thrown;
    }
    Plugin plugin{std::move(library), {}};
    for (ktModuleBase* module : ktModuleBase::modules()) {
        if (std::find(before.begin(), before.end(), module) == before.end())
            plugin.modules.push_back(module);
    }
    _plugins.push_back(std::move(plugin));
    for (ktModuleBase* module : _plugins.back().modules) {
        const QString failure = thrownBy([module] { module->init(); });
        if (!failure.isEmpty())
            ktLog::error("%s: init: %s", qPrintable(file), qPrintable(failure));
    }
    return {};
}

int PluginLoader::loadFolder(const QString& folder)
{
    int loaded = 0;
    const QDir directory(folder);
    for (const QString& name : directory.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name)) {
        const QString file = directory.absoluteFilePath(name);
        const QString why = load(file);
        if (why.isEmpty())
            ++loaded;
        else
            ktLog::error("kthost: plug-in %s: %s", qPrintable(file), qPrintable(why));
    }
    return loaded;
}

bool PluginLoader::removePanels(const Plugin& plugin)
{
    bool isGone = true;
    for (ktModuleBase* module : plugin.modules) {
        const std::string name = module->moduleName().toStdString();
        isGone &= Failures::survived([&] { return name + ": getWidget"; },
                                     [&] {
                                         QWidget* panel = module->getWidget();
                                         if (panel && ktController::getDockWindowManager())
                                             ktController::getDockWindowManager()->remove(panel);
                                     });
    }
    return isGone;
}

void PluginLoader::unloadAll()
{
    while (!_plugins.empty()) {
        Plugin plugin = std::move(_plugins.back());
        _plugins.pop_back();
        const bool isPanelGone = removePanels(plugin);
        dropCallbacksOf(*plugin.library);
        const LastWords::While unloading("plug-in " + plugin.library->fileName().toStdString() +
                                             ": it threw while it was unloaded",
                                         LastWords::status());
        if (isPanelGone)
            plugin.library->unload();
    }
}

} // namespace kthost
