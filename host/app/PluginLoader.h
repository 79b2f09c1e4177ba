#pragma once

#include <QLibrary>
#include <QString>

#include <memory>
#include <vector>

class ktModuleBase;

namespace kthost
{

/// Loads plug-ins from their library files, and unloads them. GUI thread.
class PluginLoader
{
public:
    PluginLoader() = default;

    /// Unloads what is loaded.
    ~PluginLoader();

    PluginLoader(const PluginLoader&) = delete;
    PluginLoader& operator=(const PluginLoader&) = delete;

    /// The version that a plug-in must have, as getPluginVersion() gives it.
    static QString hostVersion();

    /// Loads one library, calls its initPlugin(), then init() of the modules it made. The answer is empty, or
    /// one line that says why it was refused: it cannot be loaded, lacks an entry point, has another version
    /// than the host, or threw. A refused library leaves nothing behind: docks and callbacks go, and modules
    /// are not known any more. Of one whose initPlugin() threw the code stays in memory, since what else it
    /// had made may be in use.
    QString load(const QString& file);

    /// Loads each library (*.so) of a folder in the order of the names. A refused one is logged and passed
    /// over. Answers how many were loaded; none where there is no such folder.
    int loadFolder(const QString& folder);

    /// Destroys the panels of all modules and unloads the libraries, the last one first. Afterwards no code
    /// of theirs is called any more, but of one whose panel cannot be got, which stays in memory. The main
    /// window must still be there.
    void unloadAll();

    int count() const { return static_cast<int>(_plugins.size()); }

private:
    struct Plugin
    {
        std::unique_ptr<QLibrary> library;
        std::vector<ktModuleBase*> modules; ///< That initPlugin() made; they may be gone.
    };

    /// Its modules that live: of those that initPlugin() made, and what its code has made since.
    static std::vector<ktModuleBase*> modulesOf(const Plugin& plugin);

    /// They belong to the main window, which would destroy them when their code is gone. False where a module
    /// fails at it: its code must stay.
    static bool removePanels(const std::vector<ktModuleBase*>& modules);

    std::vector<Plugin> _plugins;
};

} // namespace kthost
