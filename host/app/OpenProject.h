#pragma once

#include "host/project/Project.h"

#include <optional>

namespace kthost
{

/// The project that is open: its file, what modules keep in ktFileIO::getProject(), and what only the file
/// knows. Scenes are given by their absolute paths, empty for none. GUI thread; one at a time.
class OpenProject
{
public:
    OpenProject();

    /// Where the project was opened from or saved to last; empty for a new one.
    const QString& file() const { return _file; }

    /// A new, empty project in place of this one. Modules are not told.
    void reset();

    /// A project from its file, in place of this one. Modules are told with message 8192. Attributes of types
    /// that are not known go to the log as warnings, and are kept.
    void load(const QString& file, Project project);

    /// What a save would write now, with this scene, is from now on what counts as unmodified.
    void settle(const QString& scene);

    /// Whether a save would write something else than at the last settle(), load() or save(), or more or
    /// fewer modules fail to say what they keep. Modules are asked with message 8192, as for a save; the
    /// project stays as it is.
    bool isModified(const QString& scene) const;

    /// Asks modules with message 8192, then writes the file. Throws HostError (BadFile) where it cannot be
    /// written; the project then stays as modified as it was. Answers how many modules failed to say what
    /// they keep: the file has what the project had of them, and the project is modified until it is saved
    /// with all that they keep.
    int save(const QString& file, const QString& scene);

    /// Asks modules and writes the file as a save does, but all stays as it was: for a copy beside the
    /// project. Answers how many modules failed.
    int writeCopy(const QString& file, const QString& scene) const;

private:
    struct Saved
    {
        QString scene;
        ktMessage::Attributes attributes;
        int failedModules; ///< So many did not say what they keep.
    };

    /// The attributes of ktFileIO::getProject() that go into a file. Those of types that no file can hold are
    /// left as the file had them; `warn` says so in the log.
    ktMessage::Attributes persistent(bool warn) const;

    /// What a file of that name would hold, once modules were asked; `warn` as above.
    Project next(const QString& file, const QString& scene, bool warn) const;

    Saved wouldSave(const QString& scene) const;

    QString _file;
    Project _read; ///< What the file said.
    std::optional<Saved> _settled;
};

} // namespace kthost
