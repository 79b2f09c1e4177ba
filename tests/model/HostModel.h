#pragma once

#include "tests/model/ModuleModel.h"
#include "tests/model/SceneModel.h"

#include <QString>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kt::test
{

/// What a project keeps, by name: a text, or a list of texts.
using Attribute = std::variant<std::string, std::vector<std::string>>;
using Attributes = std::map<std::string, Attribute>;

/// A project on the disk. Files are called by their whole paths; no scene is the empty one.
struct ProjectModel
{
    QString scene;
    Attributes attributes;

    bool operator==(const ProjectModel& other) const
    {
        return scene == other.scene && attributes == other.attributes;
    }
};

/// The host with the module in it, and the files that it works with, said once more in the plainest way. What
/// fails answers with its line of error; what is done, with none.
class HostModel
{
public:
    /// A file that is no scene; the rest of the reader's line is the reader's.
    static constexpr const char* brokenScene = "broken.wrl";

    HostModel() = default;
    HostModel(const HostModel&) = delete;
    HostModel& operator=(const HostModel&) = delete;

    std::string open(const QString& file);
    std::string openWithScene(const QString& project, const QString& scene);
    std::string save(const QString& project);
    void close();

    /// The module's attribute of the open project is no list.
    bool hasOddSettings() const;

    /// Which attribute the module will complain of when the file is opened, with this scene instead of its
    /// own where one is given; empty for none.
    std::string complaintAbout(const QString& file, const QString& sceneInstead = {}) const;

    /// Message 8192 with "_loading" true, with `settings` in the project before, where there are any.
    void tellSettings(const std::optional<Attribute>& settings);

    void run(double seconds, double framesPerSecond);
    void endTurn();

    /// What a save would write besides the scene.
    Attributes settings() const;

    /// Modules have written their settings into the project.
    void writeSettings() { attributes = settings(); }

    bool isModified() const;

    SceneModel scene;
    ModuleModel module{scene};
    QString sceneFile;
    QString projectFile;
    Attributes attributes;

    std::map<QString, SceneFile> sceneFiles;
    std::map<QString, ProjectModel> projectFiles;

private:
    std::string openProject(const QString& file, const QString& sceneInstead);
    std::string whyUnreadable(const QString& scene) const;
    std::string whyNotProject(const QString& file, const QString& sceneInstead) const;
    void clear();
    void show(const QString& file);
    void load();

    std::optional<ProjectModel> _settled; ///< What is not modified.
};

} // namespace kt::test
