#include "tests/model/HostModel.h"

#include <QFileInfo>

#include <algorithm>

namespace kt::test
{
namespace
{

const char* const settingsKey = "Animations";

bool isProject(const QString& file)
{
    return file.endsWith(".ktproj");
}

bool isOdd(const Attributes& attributes)
{
    const auto setting = attributes.find(settingsKey);
    return setting != attributes.end() && std::holds_alternative<std::string>(setting->second);
}

std::string line(const QString& file, const QString& why)
{
    return (file + ": " + why).toStdString();
}

} // namespace

std::string HostModel::whyUnreadable(const QString& file) const
{
    if (QFileInfo(file).fileName() == brokenScene)
        return line(file, "");
    return sceneFiles.count(file) != 0 ? std::string() : line(file, "No such file or directory");
}

std::string HostModel::open(const QString& file)
{
    if (isProject(file))
        return openProject(file, QString());
    const std::string why = whyUnreadable(file);
    if (!why.empty())
        return why;
    clear();
    show(file);
    module.scan();
    _settled = ProjectModel{sceneFile, settings()};
    return {};
}

std::string HostModel::openWithScene(const QString& project, const QString& file)
{
    return openProject(project, file);
}

std::string HostModel::whyNotProject(const QString& file, const QString& sceneInstead) const
{
    const auto project = projectFiles.find(file);
    if (project == projectFiles.end())
        return line(file, "No such file or directory");
    const QString shown = sceneInstead.isEmpty() ? project->second.scene : sceneInstead;
    if (shown.isEmpty())
        return {};
    const bool isThere = sceneFiles.count(shown) != 0 || QFileInfo(shown).fileName() == brokenScene;
    return isThere ? whyUnreadable(shown) : line(file, "its scene " + shown + " is not there");
}

std::string HostModel::openProject(const QString& file, const QString& sceneInstead)
{
    const std::string why = whyNotProject(file, sceneInstead);
    if (!why.empty())
        return why;
    const ProjectModel project = projectFiles.at(file);
    clear();
    show(sceneInstead.isEmpty() ? project.scene : sceneInstead);
    projectFile = file;
    attributes = project.attributes;
    load();
    // A project without a scene keeps its animations, which no scene can have.
    if (scene.isOpen)
        module.scan();
    _settled = ProjectModel{project.scene, settings()};
    return {};
}

bool HostModel::hasOddSettings() const
{
    return isOdd(attributes);
}

std::string HostModel::complaintAbout(const QString& file, const QString& sceneInstead) const
{
    const bool isLoaded = isProject(file) && whyNotProject(file, sceneInstead).empty();
    return isLoaded && isOdd(projectFiles.at(file).attributes) ? settingsKey : std::string();
}

void HostModel::load()
{
    const auto setting = attributes.find(settingsKey);
    if (setting == attributes.end())
        return;
    if (const auto* strings = std::get_if<std::vector<std::string>>(&setting->second))
        module.load(*strings);
}

void HostModel::tellSettings(const std::optional<Attribute>& settings)
{
    if (settings)
        attributes[settingsKey] = *settings;
    load();
}

void HostModel::clear()
{
    scene.close();
    module.clear();
    sceneFile.clear();
    projectFile.clear();
    attributes.clear();
    _settled.reset();
}

void HostModel::show(const QString& file)
{
    if (file.isEmpty())
        return;
    sceneFile = file;
    scene.open(sceneFiles.at(file));
}

std::string HostModel::save(const QString& project)
{
    writeSettings();
    if (!isProject(project))
        return line(project, "the name of a project ends in .ktproj");
    const ProjectModel saved{sceneFile, attributes};
    projectFiles[project] = saved;
    projectFile = project;
    _settled = saved;
    return {};
}

void HostModel::close()
{
    clear();
    _settled = ProjectModel{QString(), settings()};
}

void HostModel::run(double seconds, double framesPerSecond)
{
    const double begin = scene.now;
    for (double step = 1.0; scene.now < begin + seconds; step += 1.0) {
        scene.advanceTo(std::min(begin + step / framesPerSecond, begin + seconds));
        endTurn();
    }
}

void HostModel::endTurn()
{
    if (scene.takeChange())
        module.scan();
}

Attributes HostModel::settings() const
{
    Attributes all = attributes;
    all[settingsKey] = module.saved();
    return all;
}

bool HostModel::isModified() const
{
    return _settled && !(*_settled == ProjectModel{sceneFile, settings()});
}

} // namespace kt::test
