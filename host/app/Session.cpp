#include "host/app/Session.h"

#include "host/app/ProjectMessage.h"
#include "host/app/RescueFile.h"
#include "host/project/ProjectError.h"
#include "host/project/ProjectFile.h"
#include "host/project/ScenePath.h"
#include "host/vrml/SceneBinding.h"
#include "host/vrml/SceneBuilder.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/SceneReader.h"

#include <kt/ktController.h>
#include <kt/ktLog.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <new>

namespace kthost
{
namespace
{

void deliver(std::uint32_t id)
{
    ktMessage message(id);
    ktController::deliver(message);
}

SceneNodes drawable(const QString& file, SceneNodes nodes)
{
    if (!nodes.problem.empty())
        throw HostError(ExitStatus::BadFile, QFile::encodeName(file).toStdString(), nodes.problem);
    return nodes;
}

} // namespace

MissingSceneError::MissingSceneError(const QString& project, const QString& scene)
    : HostError(ExitStatus::BadFile, project.toStdString(),
                "its scene " + scene.simplified().toStdString() + " is not there"),
      _scene(scene)
{
}

struct Session::Scene
{
    Scene(const QString& file, SceneReading reading, const ReadLimits& limits)
        : reader(std::move(reading)),
          nodes(drawable(file, SceneBuilder::build(*reader.root, reader.names, limits))),
          binding(CoinRef<SoNode>(reader.root.get()), nodes.sensors)
    {
    }

    SceneReading reader;
    SceneNodes nodes;
    SceneBinding binding;
};

std::unique_ptr<Session::Scene> Session::load(const QString& file)
{
    try {
        emit opening(OpenStep::Reading, file);
        SceneReading reading = SceneReader::read(
            QFile::encodeName(file).toStdString(), [this](double part) { emit this->reading(part); }, _guard);
        if (!reading)
            throw HostError(ExitStatus::BadFile, reading.error);
        emit opening(OpenStep::Building, file);
        auto scene =
            std::make_unique<Scene>(file, std::move(reading), _guard ? _guard->limits() : ReadLimits());
        if (!scene->reader.end.problem().empty())
            throw HostError(ExitStatus::BadFile, scene->reader.end.problem());
        reportWarnings(file, *scene);
        return scene;
    } catch (const std::bad_alloc&) {
        throw HostError(ExitStatus::BadFile, file.toStdString(), "there is not enough memory for it");
    }
}

void Session::reportWarnings(const QString& file, const Scene& scene)
{
    const SceneWarnings& warnings = scene.reader.warnings;
    for (const SceneWarnings::Entry& entry : warnings.entries()) {
        if (entry.count > 1)
            ktLog::info("%s (%zu times)", entry.text.c_str(), entry.count);
        else
            ktLog::info("%s", entry.text.c_str());
    }
    if (warnings.countOfOthers() > 0)
        ktLog::info("%s: ... and %zu other warnings", qUtf8Printable(file), warnings.countOfOthers());
    if (warnings.total() > 0)
        ktLog::info("%s: opened with %zu warnings", qUtf8Printable(file), warnings.total());
    if (scene.nodes.scriptCount > 0)
        ktLog::info("%s: %zu Script nodes are not run", qUtf8Printable(file), scene.nodes.scriptCount);
}

Session::Session()
{
    _frames.setFollower([this](const osg::ChangeList& changes) {
        if (_scene)
            _scene->binding.apply(changes);
    });
    _frames.setEventSource([this](double now) {
        if (_scene)
            _scene->binding.takeEvents(now);
    });
    _frames.setSceneListener([this] { emit sceneEdited(); });
}

Session::~Session()
{
    ktSelectionManager::selectNodes({});
    ktScenegraph::setRootNode({});
}

SoNode* Session::drawing() const
{
    return _scene ? _scene->reader.root.get() : nullptr;
}

const NodeNames* Session::names() const
{
    return _scene ? &_scene->reader.names : nullptr;
}

std::vector<SoNode*> Session::drawingsOf(const ktNodePtr& node) const
{
    return _scene && node ? _scene->binding.drawingsOf(*node.operator->()) : std::vector<SoNode*>{};
}

std::size_t Session::warnings() const
{
    return _scene ? _scene->reader.warnings.total() : 0;
}

auto Session::beBusyWith(const QString& file)
{
    if (_isBusy)
        throw HostError(ExitStatus::BadFile, file.toStdString(),
                        "another file is just being opened or saved");
    _isBusy = true;
    return qScopeGuard([this] { _isBusy = false; });
}

void Session::open(const QString& file)
{
    if (ProjectFile::isProject(file)) {
        openProject(file, QString());
        return;
    }
    const auto busy = beBusyWith(file);
    const auto ended = qScopeGuard([&] { emit opening(OpenStep::Ended, file); });
    std::unique_ptr<Scene> scene = load(file);
    emit opening(OpenStep::Announcing, file);
    clear();
    show(std::move(scene), file);
    deliver(ktMessageId::SceneChanged);
    _project.settle(_file);
    emit sceneReplaced();
}

void Session::openWithScene(const QString& project, const QString& scene)
{
    openProject(project, scene);
}

void Session::openProject(const QString& file, const QString& sceneInstead)
{
    const auto busy = beBusyWith(file);
    const auto ended = qScopeGuard([&] { emit opening(OpenStep::Ended, file); });
    Project project;
    try {
        project = ProjectFile::read(file);
    } catch (const ProjectError& error) {
        throw HostError(ExitStatus::BadFile, error.what());
    }
    const QString named = project.scene.isEmpty() ? QString() : ScenePath::absolute(file, project.scene);
    const QString sceneFile = sceneInstead.isEmpty() ? named : sceneInstead;
    if (!sceneFile.isEmpty() && !QFileInfo::exists(sceneFile))
        throw MissingSceneError(file, sceneFile);
    std::unique_ptr<Scene> scene = sceneFile.isEmpty() ? nullptr : load(sceneFile);

    emit opening(OpenStep::Announcing, file);
    clear();
    show(std::move(scene), sceneFile);
    _project.load(QFileInfo(file).absoluteFilePath(), std::move(project));
    // Without a scene nothing has changed, and a scan would only take the settings away.
    if (_scene)
        deliver(ktMessageId::SceneChanged);
    _project.settle(named);
    emit sceneReplaced();
}

void Session::show(std::unique_ptr<Scene> scene, const QString& file)
{
    if (!scene)
        return;
    _scene = std::move(scene);
    _file = QFileInfo(file).absoluteFilePath();
    ktScenegraph::setRootNode(_scene->nodes.root);
    _scene->binding.start(ktController::getSimulationTime());
}

void Session::save(const QString& project)
{
    const auto busy = beBusyWith(project);
    const int failed = _project.save(QFileInfo(project).absoluteFilePath(), _file);
    emit projectSaved();
    if (failed > 0)
        throw HostError(ExitStatus::BadFile, project.toStdString(), "saved, but " + saidOfFailures(failed));
}

Session::Rescued Session::rescue() const
{
    const QString shown = projectFile().isEmpty() ? _file : projectFile();
    if (shown.isEmpty() || _isLetGo)
        return {};
    // Before a file is made: a module may never come back from the question.
    const std::optional<OpenProject::Copy> unsaved = _project.unsaved(_file);
    if (!unsaved)
        return {};
    const auto write = [&](const QString& file) { _project.write(*unsaved, file); };
    return {RescueFile::write(shown, write), unsaved->failedModules};
}

void Session::close()
{
    const auto busy = beBusyWith(QStringLiteral("close"));
    clear();
    _project.settle(QString());
    emit sceneReplaced();
}

void Session::letGo()
{
    _isBusy = _isLetGo = true; // for good: nobody is asked for changes any more
    ktSelectionManager::selectNodes({});
    ktScenegraph::setRootNode({});
    _file.clear();
    _scene.reset();
    _frames.forget();
    emit sceneReplaced();
}

void Session::clear()
{
    ktSelectionManager::selectNodes({});
    ktScenegraph::setRootNode({});
    deliver(ktMessageId::SceneCleared);
    _project.reset();
    _file.clear();
    // Dropped last: views show the old drawing until they are told of the new one.
    _scene.reset();
}

} // namespace kthost
