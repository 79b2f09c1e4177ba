#include "host/app/PluginLoader.h"

#include "host/app/LastWords.h"

#include <kt/ktController.h>
#include <kt/ktFailures.h>
#include <kt/ktLog.h>
#include <kt/ktModuleBase.h>
#include <kt/ktOSGWidget.h>
#include <kt/ktPythonInit.h>
#include <qkt/QKTDockWindowManager.h>

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstring>

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

/// What `call` threw, as a line; empty where it threw nothing.
template <class Call>
QString thrownBy(Call&& call)
{
    std::string what;
    return ktFailures::threw(call, what) ? QStringLiteral("it threw: ") + QString::fromStdString(what)
                                         : QString();
}

/// Where the code of a library is loaded; null for a place that is no code.
const void* baseOf(const void* place)
{
    Dl_info info{};
    return dladdr(place, &info) != 0 ? info.dli_fbase : nullptr;
}

/// The same of a library that is loaded; null where it is not.
const void* baseOf(const QLibrary& library)
{
    void* const handle = dlopen(QFile::encodeName(library.fileName()).constData(), RTLD_LAZY | RTLD_NOLOAD);
    link_map* map = nullptr;
    const bool isKnown = handle && dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0;
    const void* const base = isKnown ? reinterpret_cast<const void*>(map->l_addr) : nullptr;
    if (handle)
        dlclose(handle);
    return base;
}

/// Where the code of a module's class is loaded, by its table of virtual functions.
const void* baseOf(const ktModuleBase& module)
{
    const void* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&module), sizeof table);
    return baseOf(table);
}

/// No callback of the library is called any more, whether it took them back or not.
void dropCallbacksOf(const QLibrary& library)
{
    const void* base = baseOf(library);
    const auto isOfLibrary = [base](auto callback) {
        return base && baseOf(reinterpret_cast<const void*>(callback)) == base;
    };
    ktController::dropCallbacks(isOfLibrary);
    ktOSGWidget::dropCallbacks(isOfLibrary);
    ktPythonInit::dropCallbacks(isOfLibrary);
}

bool contains(const std::vector<ktModuleBase*>& modules, ktModuleBase* module)
{
    return std::find(modules.begin(), modules.end(), module) != modules.end();
}

/// The living modules that are not among the known ones.
std::vector<ktModuleBase*> modulesBut(const std::vector<ktModuleBase*>& known)
{
    std::vector<ktModuleBase*> others;
    for (ktModuleBase* module : ktModuleBase::modules()) {
        if (!contains(known, module))
            others.push_back(module);
    }
    return others;
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
    const std::vector<ktModuleBase*> before = ktModuleBase::modules();
    const QList<QDockWidget*> docks = presentDocks();
    const auto leaveNothing = [&] {
        dropCallbacksOf(*library);
        ktModuleBase::drop([&before](ktModuleBase* module) { return !contains(before, module); });
        dropDocksBut(docks);
    };
    InitFunction init = nullptr;
    QString why;
    {
        const LastWords::While loading("plug-in " + file.toStdString() + ": it threw while it was loaded",
                                       static_cast<int>(ExitStatus::NoPlugin));
        const QString thrown = thrownBy([&] { why = refusal(*library, init); });
        if (why.isEmpty())
            why = thrown;
        if (!why.isEmpty()) {
            leaveNothing();
            library->unload();
            return why;
        }
    }
    const QString thrown = thrownBy(init);
    if (!thrown.isEmpty()) {
        leaveNothing();
        return thrown;
    }
    const std::vector<ktModuleBase*> made = modulesBut(before);
    _plugins.push_back({std::move(library), made});
    for (ktModuleBase* module : made) {
        if (!contains(ktModuleBase::modules(), module))
            continue; // another one's init() took it away
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

std::vector<ktModuleBase*> PluginLoader::modulesOf(const Plugin& plugin)
{
    const void* base = baseOf(*plugin.library);
    std::vector<ktModuleBase*> living;
    for (ktModuleBase* module : ktModuleBase::modules()) {
        if (contains(plugin.modules, module) || baseOf(*module) == base)
            living.push_back(module);
    }
    return living;
}

bool PluginLoader::removePanels(const std::vector<ktModuleBase*>& modules)
{
    bool isGone = true;
    for (ktModuleBase* module : modules) {
        if (!contains(ktModuleBase::modules(), module))
            continue; // it went with another one's panel
        const std::string name = module->moduleName().toStdString();
        isGone &= ktFailures::survived([&] { return name + ": getWidget"; },
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
        const LastWords::While unloading("plug-in " + plugin.library->fileName().toStdString() +
                                             ": it threw while it was unloaded",
                                         LastWords::status());
        const std::vector<ktModuleBase*> modules = modulesOf(plugin);
        const bool isPanelGone = removePanels(modules);
        dropCallbacksOf(*plugin.library);
        if (!isPanelGone)
            continue;
        plugin.library->unload();
        // Those that nothing destroyed have no code any more.
        ktModuleBase::drop([&modules](ktModuleBase* module) { return contains(modules, module); });
    }
}

} // namespace kthost
