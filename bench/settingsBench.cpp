// Settings of many animations: saved and loaded as a project, beside the bare JSON writer and reader on the
// same strings. What the plug-in does on a load beyond that, looking each name up among those before it and
// filling its list, is measured by itself.
#include "host/app/ProjectMessage.h"
#include "host/project/ProjectFile.h"

#include <kt/ktFileIO.h>

#include <benchmark/benchmark.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <string>
#include <vector>

namespace
{

using namespace kthost;
using Strings = std::vector<std::string>;

constexpr const char* settingsKey = "Animations";

/// Four strings an animation: its name, a comment of a sentence with letters beyond ASCII, two hotkeys.
Strings settings(benchmark::State& state)
{
    Strings strings;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const std::string number = std::to_string(i);
        strings.insert(strings.end(), {"Animation" + number,
                                       "\xC3\x96"
                                       "ffnet das Tor " +
                                           number + ", langsam",
                                       "Shift-Ctrl A", " 1"});
    }
    return strings;
}

QString path()
{
    static const QTemporaryDir folder;
    return folder.filePath("settings.ktproj");
}

void bareWrite(benchmark::State& state)
{
    std::vector<QString> texts;
    for (const std::string& text : settings(state))
        texts.push_back(QString::fromStdString(text));
    for (auto _ : state) {
        QJsonArray array;
        for (const QString& text : texts)
            array.append(text);
        QFile file(path());
        file.open(QIODevice::WriteOnly);
        file.write(QJsonDocument(array).toJson());
    }
}

void bareRead(benchmark::State& state)
{
    QJsonArray all;
    for (const std::string& text : settings(state))
        all.append(QString::fromStdString(text));
    QFile out(path());
    out.open(QIODevice::WriteOnly);
    out.write(QJsonDocument(all).toJson());
    out.close();
    for (auto _ : state) {
        QFile file(path());
        file.open(QIODevice::ReadOnly);
        const QJsonArray array = QJsonDocument::fromJson(file.readAll()).array();
        std::vector<QString> texts;
        for (const QJsonValue& text : array)
            texts.push_back(text.toString());
        benchmark::DoNotOptimize(texts.data());
    }
}

/// The plug-in's registry is filled.
void loadPlugin(const Strings& strings)
{
    ktFileIO::clearProject();
    ktFileIO::getProject().set(settingsKey, strings);
    tellModules(ProjectStep::Load);
}

/// The plug-in's answer, then the file; on the disk when it ends, which takes no CPU time.
void save(benchmark::State& state)
{
    loadPlugin(settings(state));
    for (auto _ : state) {
        tellModules(ProjectStep::Save);
        Project project;
        project.attributes = ktFileIO::getProject().attributes();
        ProjectFile::write(project, path());
    }
}

/// The file, up to the message that the plug-in gets.
void load(benchmark::State& state)
{
    Project written;
    written.attributes[settingsKey] = settings(state);
    ProjectFile::write(written, path());
    for (auto _ : state) {
        const Project project = ProjectFile::read(path());
        ktFileIO::clearProject();
        for (const auto& [name, value] : project.attributes)
            ktFileIO::getProject().set(name, value);
    }
}

/// The plug-in's own part of a load.
void pluginLoad(benchmark::State& state)
{
    const Strings strings = settings(state);
    for (auto _ : state)
        loadPlugin(strings);
}

} // namespace

BENCHMARK(bareWrite)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(bareRead)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(load)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(pluginLoad)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
