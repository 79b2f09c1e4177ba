#pragma once

#include <QSize>
#include <QString>

#include <string>
#include <variant>
#include <vector>

namespace kthost
{

// What the command line can ask for, one after the other; see CommandLine.

/// Print the registry's animations.
struct ListAction
{
};

/// Print each time sensor of the scene.
struct DumpAction
{
};

/// Send the named message with the attribute "animation-name". Both are bytes as given.
struct SendAction
{
    std::string message;
    std::string animation;
};

/// Let simulation time pass, in seconds.
struct RunAction
{
    double seconds;
};

/// Steps a second of the runs that follow.
struct FpsAction
{
    double framesPerSecond;
};

/// Write a picture now.
struct ScreenshotAction
{
    QString file;
};

/// Write a numbered picture into the folder for each step of the runs that follow.
struct FramesAction
{
    QString folder;
};

/// Size in pixels of the pictures that follow.
struct SizeAction
{
    QSize size;
};

/// Save the project.
struct SaveAction
{
    QString file; ///< Ends in ".ktproj".
};

/// Run a script with these words as its arguments. They are bytes as given.
struct ScriptAction
{
    QString file;
    std::vector<std::string> words;
};

using Action = std::variant<ListAction, DumpAction, SendAction, RunAction, FpsAction, ScreenshotAction,
                            FramesAction, SizeAction, SaveAction, ScriptAction>;

/// The program's arguments, understood.
struct CommandLine
{
    bool wantsHelp = false;
    bool wantsVersion = false;
    bool isHeadless = false;
    QString file; ///< Scene or project to open; empty for none.
    std::vector<QString> pluginFiles;
    std::vector<QString> pluginFolders;
    std::vector<Action> actions; ///< In the order given.

    /// Throws HostError with BadArguments, naming the argument that is off.
    static CommandLine parse(int argc, const char* const* argv);

    /// What `--help` prints.
    static QString helpText();
};

} // namespace kthost
