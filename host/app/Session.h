#pragma once

#include "host/app/FrameLoop.h"
#include "host/app/HostError.h"
#include "host/app/OpenProject.h"

#include <QObject>
#include <QString>

#include <memory>

class SoNode;

namespace kthost
{

class NodeNames;
class SceneGuard;

/// What open() is about to do; each can take its time with a large scene.
enum class OpenStep {
    Reading,
    Building,
    Announcing, ///< Modules and views take the new scene over.
    Ended       ///< Well or not.
};

/// A project is fine, but its scene is not where it says. Can be opened with another one.
class MissingSceneError : public HostError
{
public:
    MissingSceneError(const QString& project, const QString& scene);

    const QString& scene() const { return _scene; }

private:
    QString _scene;
};

/// What is open in the host: one scene, its clock, its animations, and the project that they belong to. GUI
/// thread; one at a time. Modules and views that are told of an opening, a save or a closing cannot begin
/// another one meanwhile: that throws HostError (BadFile).
class Session : public QObject
{
    Q_OBJECT

public:
    Session();
    ~Session() override;

    /// Who checks scene files before they are read, and within which limits; null, as at first, for nobody.
    /// It must outlive the session.
    void setGuard(SceneGuard* guard) { _guard = guard; }

    /// Opens a VRML97 scene with a new, empty project, or a project (by its name, see ProjectFile::isProject)
    /// with its scene, in place of what is open. Modules are told with messages 16 and 32768, for a project
    /// with 8192 between them; without a scene, there is no 32768. Looping sensors run from now on. Warnings
    /// of the readers go to the log. Throws HostError (BadFile), one line with the reader's words, where the
    /// file or the project's scene does not load; what is open then stays. MissingSceneError where the
    /// project's scene is not there.
    void open(const QString& file);

    /// Opens a project with this scene instead of the one that it names; a save makes it the project's own.
    void openWithScene(const QString& project, const QString& scene);

    /// Saves what modules keep in the project, and which scene is open, under a name that ends in ".ktproj".
    /// Modules are told with message 8192. Throws HostError (BadFile) where the file cannot be written; what
    /// was there stays. Throws HostError (BadFile), too, where modules fail to say what they keep: the
    /// project is saved with what it has of them, and stays modified.
    void save(const QString& project);

    /// What became of a rescue().
    struct Rescued
    {
        QString file;          ///< Empty where nothing is unsaved.
        int failedModules = 0; ///< So many failed to say what they keep.
    };

    /// For an end that nobody can be asked about: writes what is not saved to a project of its own,
    /// "NAME.rescued.ktproj" beside the project or else the scene; where that cannot be, in the user's folder
    /// for data, or else in a new one of the folder for temporary files. An older one of the name stays.
    /// Throws HostError (BadFile), why it cannot be beside the project, where it cannot be anywhere.
    Rescued rescue() const;

    /// Leaves nothing open but a new, empty project; modules are told with message 16.
    void close();

    /// Before plug-ins are unloaded, and for the end of the program only: what of theirs stands in the scene
    /// goes while its code is there. Modules are not told.
    void letGo();

    /// The scene's file; empty where none is open.
    const QString& file() const { return _file; }

    /// The project's file; empty where it is new.
    const QString& projectFile() const { return _project.file(); }

    /// Whether a save would write something else than the last open() or save() found. Modules are asked,
    /// which takes as long as a save without the file. While something is opened or saved, nothing is
    /// modified.
    bool isModified() const { return !_isBusy && _project.isModified(_file); }

    /// What is drawn; null where no scene is open. Owned by the session until the next open() or close().
    SoNode* drawing() const;

    /// The names behind the drawing's stand-ins; null where no scene is open.
    const NodeNames* names() const;

    /// What stands for a node in drawing(): the one that is drawn, or for a time sensor those that it
    /// animates. None where nothing does.
    std::vector<SoNode*> drawingsOf(const ktNodePtr& node) const;

    /// How many warnings the reader had about the scene; their texts are in the log.
    std::size_t warnings() const;

    FrameLoop& frames() { return _frames; }

signals:
    /// open() goes on to its next step. Ended comes after sceneReplaced().
    void opening(kthost::OpenStep step, const QString& file);

    /// How much of the file open() has read, a part from 0 to 1. The scene is being made: slots may paint, no
    /// more.
    void reading(double part);

    /// Another scene is open, or none; see file() and projectFile().
    void sceneReplaced();

    /// The project was saved; see projectFile().
    void projectSaved();

    /// Nodes of the scene were added, removed or renamed.
    void sceneEdited();

private:
    struct Scene;

    /// The file as a scene, beside the one that is open.
    std::unique_ptr<Scene> load(const QString& file);

    /// Details go to the log, and their number.
    static void reportWarnings(const QString& file, const Scene& scene);

    /// `scene` is opened instead of the project's own, unless it is empty.
    void openProject(const QString& file, const QString& scene);

    /// After clear(): the scene is what is open; null does nothing.
    void show(std::unique_ptr<Scene> scene, const QString& file);

    void clear();

    /// For as long as what it gives lives, nothing else is opened, saved or closed.
    auto beBusyWith(const QString& file);

    bool _isBusy = false;
    bool _isLetGo = false;
    SceneGuard* _guard = nullptr;
    FrameLoop _frames;
    OpenProject _project;
    std::unique_ptr<Scene> _scene;
    QString _file;
};

} // namespace kthost
