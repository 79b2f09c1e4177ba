// Scenes and projects: opened, saved, closed; and their files, as others write them.
#include "tests/model/Pair.h"
#include "tests/model/mustEqual.h"

#include "host/app/ProjectMessage.h"
#include "host/project/ProjectFile.h"

#include <kt/ktFileIO.h>

#include <gtest/gtest.h>

namespace kt::test
{
namespace
{

boost::any held(const Attribute& attribute)
{
    return std::visit([](const auto& value) { return boost::any(value); }, attribute);
}

/// As a project names the scene: relative to its own folder.
QString sceneOf(const QString& project, const QString& scene)
{
    return (scene.isEmpty() || !project.contains('/') ? QString() : QString("../")) + scene;
}

} // namespace

void Pair::compareFailure(const std::string& is, const std::string& expected) const
{
    // The reader says the rest of what is wrong in a file.
    const std::string readers = host.path(HostModel::brokenScene).toStdString() + ": ";
    const std::string told = readers == expected ? is.substr(0, readers.size() - 2) + ": " : is;
    mustEqual("the line of error", told, expected);
}

void Pair::withComplaint(const std::string& attribute, const std::function<void()>& action)
{
    if (attribute.empty()) {
        action();
        return;
    }
    testing::internal::CaptureStderr();
    action();
    const std::string told = testing::internal::GetCapturedStderr();
    const std::string complaint = " : Attribute '" + attribute + "' has wrong type (is:'";
    if (told.find(complaint) == std::string::npos)
        RC_FAIL("nothing was said of the type of the attribute " + attribute);
}

void Pair::perform(const WriteScene& step)
{
    host.write(step.file, vrml(step.scene));
    model.sceneFiles[host.path(step.file)] = step.scene;
}

void Pair::perform(const WriteProject& step)
{
    kthost::Project project;
    project.scene = sceneOf(step.file, step.scene);
    project.isSceneOutside = project.scene.startsWith("../");
    for (const auto& [name, value] : step.attributes)
        project.attributes[name] = held(value);
    kthost::ProjectFile::write(project, host.path(step.file));
    model.projectFiles[host.path(step.file)] = {host.path(step.scene), step.attributes};
}

void Pair::perform(const Open& step)
{
    const QString file = host.path(step.file);
    std::string failure;
    withComplaint(model.complaintAbout(file), [&] {
        failure = isByScript(step.road)
                      ? failureOfScript("ktHost.open(" + pythonText(file.toStdString()) + ')')
                      : RealHost::failureOf([&] { host.session.open(file); });
    });
    compareFailure(failure, model.open(file));
}

void Pair::perform(const OpenWithScene& step)
{
    const QString project = host.path(step.project);
    const QString scene = host.path(step.scene);
    std::string failure;
    withComplaint(model.complaintAbout(project, scene), [&] {
        failure = RealHost::failureOf([&] { host.session.openWithScene(project, scene); });
    });
    compareFailure(failure, model.openWithScene(project, scene));
}

void Pair::perform(const Save& step)
{
    const QString file = host.path(step.project);
    const std::string failure = isByScript(step.road)
                                    ? failureOfScript("ktHost.save(" + pythonText(file.toStdString()) + ')')
                                    : RealHost::failureOf([&] { host.session.save(file); });
    const std::string expected = model.save(file);
    compareFailure(failure, expected);
    if (!expected.empty())
        return;
    const kthost::Project saved = kthost::ProjectFile::read(file);
    const ProjectModel& project = model.projectFiles.at(file);
    const QString scene = project.scene.isEmpty() ? QString() : project.scene.mid(host.path("/").size() - 1);
    mustEqual("the saved scene", saved.scene, sceneOf(step.project, scene));
    mustEqual("the saved settings", attributesOf(saved.attributes), project.attributes);
}

void Pair::perform(const Close&)
{
    host.session.close();
    model.close();
}

void Pair::perform(const TellSettings& step)
{
    if (step.settings)
        ktFileIO::getProject().set("Animations", held(*step.settings));
    model.tellSettings(step.settings);
    withComplaint(model.hasOddSettings() ? "Animations" : "",
                  [] { kthost::tellModules(kthost::ProjectStep::Load); });
}

} // namespace kt::test
