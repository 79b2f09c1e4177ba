#pragma once

#include <QObject>
#include <QSize>
#include <QString>

#include <memory>

namespace kthost
{

class PictureRenderer;
class SceneView;
class Session;

/// Pictures of the open scene, into files.
class Pictures
{
public:
    /// `session` must outlive the pictures. Where no `view` is shared, they are taken through a camera of
    /// their own, which stands where the scene's bound viewpoint does.
    explicit Pictures(Session& session, SceneView* view = nullptr);
    ~Pictures();

    /// Draws the scene as it is now and writes a PNG file, in place of an older one or not at all.
    /// Throws HostError: NoPicture where it cannot be drawn, BadFile where it cannot be written.
    void write(const QString& file, const QSize& size);

private:
    SceneView& view();

    Session& _session;
    SceneView* _shared;
    std::unique_ptr<SceneView> _own;            ///< Made for the first picture of a scene.
    std::unique_ptr<PictureRenderer> _renderer; ///< Made for the first picture.
    QMetaObject::Connection _replaced;
};

} // namespace kthost
