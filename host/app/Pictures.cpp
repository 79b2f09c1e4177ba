#include "host/app/Pictures.h"

#include "host/app/HostError.h"
#include "host/app/Session.h"
#include "host/view/PictureFile.h"
#include "host/view/PictureRenderer.h"
#include "host/view/SceneView.h"

namespace kthost
{

Pictures::Pictures(Session& session, SceneView* view) : _session(session), _shared(view)
{
    _replaced = QObject::connect(&session, &Session::sceneReplaced, [this] { _own.reset(); });
}

Pictures::~Pictures()
{
    QObject::disconnect(_replaced);
}

SceneView& Pictures::view()
{
    if (_shared)
        return *_shared;
    if (!_own) {
        _own = std::make_unique<SceneView>();
        _own->setScene(_session.drawing(), _session.names());
    }
    return *_own;
}

void Pictures::write(const QString& file, const QSize& size)
{
    if (!_renderer)
        _renderer = std::make_unique<PictureRenderer>();
    SceneView& seen = view();
    seen.updateViewpoint();
    const Picture picture = _renderer->render(seen, size);
    if (!picture.error.isEmpty())
        throw HostError(ExitStatus::NoPicture, file.toStdString(), picture.error.toStdString());
    const QString error = writePicture(picture.image, file);
    if (!error.isEmpty())
        throw HostError(ExitStatus::BadFile, file.toStdString(), error.toStdString());
}

} // namespace kthost
