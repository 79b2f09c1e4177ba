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

    /// What a save would write.
    struct Copy
    {
        QString scene;
        ktMessage::Attributes attributes;
        int failedModules; ///< So many did not say what they keep; it has what the project had of them.
    };

    /// A copy where isModified() would be true. Modules are asked once, and nobody when it is written.
    std::optional<Copy> unsaved(const QString& scene) const;

    /// Throws HostError (BadFile) where the file cannot be written. The open project stays as it was.
    void write(const Copy& copy, const QString& file) const;

private:
    /// The attributes of ktFileIO::getProject() that go into a file. Those of types that no file can hold are
    /// left as the file had them; `warn` says so in the log.
    ktMessage::Attributes persistent(bool warn) const;

    /// The copy in a file of that name, with what only the file knows.
    Project next(const Copy& copy, const QString& file) const;

    /// Asks modules; all stays as it was.
    Copy wouldSave(const QString& scene) const;

    QString _file;
    Project _read; ///< What the file said.
    std::optional<Copy> _settled;
};

} // namespace kthost
