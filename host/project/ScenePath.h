#pragma once

#include <QString>

namespace kthost
{

/// How a project names its scene: by a path relative to the project's folder, with '/' between folders. Such
/// a project can be moved, copied and handed on together with its scene. docs/projects.md has the rules.
class ScenePath
{
public:
    /// The path from the project at `projectFile` to `sceneFile`; both need not exist, their folders do. The
    /// shortest that stays within the folder, as it is called; else the one between the folders that the
    /// links lead to.
    static QString relative(const QString& projectFile, const QString& sceneFile);

    /// The file that `relative`, one that refusal() has nothing against, leads to.
    static QString absolute(const QString& projectFile, const QString& relative);

    /// Begins by leaving the project's folder.
    static bool isOutside(const QString& relative);

    /// Why a project file must not name its scene so; empty where it may. `mayBeOutside`: the project says
    /// that its scene is meant to be outside.
    static QString refusal(const QString& path, bool mayBeOutside);
};

} // namespace kthost
