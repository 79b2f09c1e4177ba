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

void writeFile(const Project& project, const QString& file)
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

Project OpenProject::next(const Copy& copy, const QString& file) const
{
    Project next = _read;
    next.attributes = copy.attributes;
    next.scene = copy.scene.isEmpty() ? QString() : ScenePath::relative(file, copy.scene);
    next.isSceneOutside = ScenePath::isOutside(next.scene);
    return next;
}

OpenProject::Copy OpenProject::wouldSave(const QString& scene) const
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
    return unsaved(scene).has_value();
}

std::optional<OpenProject::Copy> OpenProject::unsaved(const QString& scene) const
{
    if (!_settled)
        return {}; // nothing was ever open
    Copy now = wouldSave(scene);
    if (now.scene == _settled->scene && now.failedModules == _settled->failedModules &&
        areSame(now.attributes, _settled->attributes))
        return {};
    return now;
}

int OpenProject::save(const QString& file, const QString& scene)
{
    const int failed = tellModules(ProjectStep::Save);
    Copy saved{scene, persistent(true), failed > 0 ? incomplete : 0};
    Project project = next(saved, file);
    writeFile(project, file);
    _settled = std::move(saved);
    _read = std::move(project);
    _file = file;
    return failed;
}

void OpenProject::write(const Copy& copy, const QString& file) const
{
    writeFile(next(copy, file), file);
}

} // namespace kthost
