#include "host/app/OpenProject.h"

#include "host/app/HostError.h"
#include "host/app/ProjectMessage.h"
#include "host/project/AttributeValue.h"
#include "host/project/ProjectError.h"
#include "host/project/ProjectFile.h"
#include "host/project/ScenePath.h"

#include <kt/ktFileIO.h>
#include <kt/ktLog.h>

#include <algorithm>

namespace kthost
{
namespace
{

/// In place of a number of modules that failed, in what was saved: what they keep is not in it, so that a
/// save is always due.
constexpr int incomplete = -1;

bool areSame(const ktMessage::Attributes& a, const ktMessage::Attributes& b)
{
    const auto isSame = [](const auto& first, const auto& second) {
        return first.first == second.first && AttributeValue::areSame(first.second, second.second);
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), isSame);
}

void write(const Project& project, const QString& file)
{
    try {
        ProjectFile::write(project, file);
    } catch (const ProjectError& error) {
        throw HostError(ExitStatus::BadFile, error.what());
    }
}

} // namespace

OpenProject::OpenProject()
{
    reset();
}

void OpenProject::reset()
{
    ktFileIO::clearProject();
    _file.clear();
    _read = {};
    _settled.reset();
}

void OpenProject::load(const QString& file, Project project)
{
    reset();
    _file = file;
    _read = std::move(project);
    for (const QString& name : _read.unknownAttributes.keys())
        ktLog::warning("%s: the attribute %s is of a type that is not known here; it is kept",
                       qUtf8Printable(file), qUtf8Printable(name));
    for (const auto& [name, value] : _read.attributes)
        ktFileIO::getProject().set(name, value);
    tellModules(ProjectStep::Load);
}

ktMessage::Attributes OpenProject::persistent(bool warn) const
{
    const ktMessage& project = ktFileIO::getProject();
    ktMessage::Attributes result;
    for (const auto& [name, value] : project.attributes()) {
        if (!project.isPersistent(name))
            continue;
        if (!AttributeValue::typeOf(value).isEmpty()) {
            result.insert({name, value});
            continue;
        }
        const auto read = _read.attributes.find(name);
        if (read != _read.attributes.end())
            result.insert(*read);
        if (warn)
            ktLog::warning(
                "the project's attribute %s is of a type that no project file can hold; %s", name.c_str(),
                read != _read.attributes.end() ? "the file keeps its older value" : "it is not saved");
    }
    return result;
}

OpenProject::Saved OpenProject::wouldSave(const QString& scene) const
{
    const ProjectProbe probe;
    const int failed = tellModules(ProjectStep::Save);
    return {scene, persistent(false), failed};
}

void OpenProject::settle(const QString& scene)
{
    _settled = wouldSave(scene);
}

bool OpenProject::isModified(const QString& scene) const
{
    if (!_settled)
        return false; // nothing was ever open
    const Saved now = wouldSave(scene);
    return now.scene != _settled->scene || now.failedModules != _settled->failedModules ||
           !areSame(now.attributes, _settled->attributes);
}

Project OpenProject::next(const QString& file, const QString& scene, bool warn) const
{
    Project next = _read;
    next.attributes = persistent(warn);
    next.scene = scene.isEmpty() ? QString() : ScenePath::relative(file, scene);
    next.isSceneOutside = ScenePath::isOutside(next.scene);
    return next;
}

int OpenProject::save(const QString& file, const QString& scene)
{
    const int failed = tellModules(ProjectStep::Save);
    Project saved = next(file, scene, true);
    write(saved, file);
    _settled = Saved{scene, saved.attributes, failed > 0 ? incomplete : 0};
    _read = std::move(saved);
    _file = file;
    return failed;
}

int OpenProject::writeCopy(const QString& file, const QString& scene) const
{
    const ProjectProbe probe;
    const int failed = tellModules(ProjectStep::Save);
    write(next(file, scene, false), file);
    return failed;
}

} // namespace kthost
