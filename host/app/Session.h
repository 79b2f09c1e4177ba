#pragma once

#include "host/app/FrameLoop.h"

#include <QObject>
#include <QString>

#include <memory>

class SoNode;

namespace kthost
{

class NodeNames;

/// What open() is about to do; each can take its time with a large scene.
enum class OpenStep {
    Reading,
    Building,
    Announcing, ///< Modules and views take the new scene over.
    Ended       ///< Well or not.
};

/// What is open in the host: one scene, its clock, its animations. GUI thread; one at a time.
class Session : public QObject
{
    Q_OBJECT

public:
    Session();
    ~Session() override;

    /// Opens a VRML97 scene in place of the present one. Modules are told with messages 16 and 32768; looping
    /// sensors run from now on. Warnings of the reader go to the log. Throws HostError (BadFile), one line
    /// with the reader's words, where it does not load; the present scene then stays.
    void open(const QString& file);

    /// Leaves nothing open; modules are told with message 16.
    void close();

    /// The scene's file; empty where none is open.
    const QString& file() const { return _file; }

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

    /// Another scene is open, or none; see file().
    void sceneReplaced();

    /// Nodes of the scene were added, removed or renamed.
    void sceneEdited();

private:
    struct Scene;

    /// The file as a scene, beside the one that is open.
    std::unique_ptr<Scene> load(const QString& file);

    /// Details go to the log, and their number.
    static void reportWarnings(const QString& file, const Scene& scene);

    void clear();

    FrameLoop _frames;
    std::unique_ptr<Scene> _scene;
    QString _file;
};

} // namespace kthost
