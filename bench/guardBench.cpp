// What it costs to let a process of its own read a scene file first: guarded reading to unguarded, on the
// same file, by turns, by the wall clock, since two processes take part. Each reading is in a process forked
// for it, since the reader's library keeps the names of whatever it read and slows down with them.
//   guardBench [--benchmark_filter=...]
// The figures are medians: the time of the guarded loading, and the counters "bare" (ms), "guarded" (ms),
// "ratio" and its quartiles "lower" and "upper"; and, for what this machine's second core is worth at that
// time, "two": two unguarded loadings at once to one.
#include "bench/support/GuardScenes.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneBinding.h"
#include "host/vrml/SceneBuilder.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/SceneReader.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <vector>

namespace
{

using namespace kthost;

constexpr int pairsOfLoadings = 31;

/// In milliseconds; below 0 where the file was refused.
double timeLoading(const std::string& path, SceneGuard* guard)
{
    const auto start = std::chrono::steady_clock::now();
    SceneReading reading = SceneReader::read(path, {}, guard);
    if (!reading)
        return -1.0;
    const SceneNodes nodes = SceneBuilder::build(*reading.root, reading.names);
    const SceneBinding binding(CoinRef<SoNode>(reading.root.get()), nodes.sensors);
    const bool isRefused = !reading.end.problem().empty();
    const std::chrono::duration<double, std::milli> duration = std::chrono::steady_clock::now() - start;
    return isRefused ? -1.0 : duration.count();
}

/// The longest of so many loadings at once, in a process each.
double timeElsewhere(const std::string& path, SceneGuard* guard, int processes = 1)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return -1.0;
    for (int i = 0; i < processes; ++i) {
        if (fork() == 0) {
            const double duration = timeLoading(path, guard);
            _exit(write(ends[1], &duration, sizeof duration) == sizeof duration ? 0 : 1);
        }
    }
    close(ends[1]);
    double longest = -1.0;
    double duration = 0.0;
    while (read(ends[0], &duration, sizeof duration) == sizeof duration)
        longest = std::max(longest, duration);
    close(ends[0]);
    for (int i = 0; i < processes; ++i)
        wait(nullptr);
    return longest;
}

double quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

void guardedToBare(benchmark::State& state, const std::string& path)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    timeElsewhere(path, &guard); // it starts in the background
    std::vector<double> bare;
    std::vector<double> twoAtOnce;
    std::vector<double> guarded;
    std::vector<double> ratios;
    for (auto _ : state) {
        bare.push_back(timeElsewhere(path, nullptr));
        twoAtOnce.push_back(timeElsewhere(path, nullptr, 2));
        guarded.push_back(timeElsewhere(path, &guard));
        if (bare.back() < 0.0 || guarded.back() < 0.0) {
            state.SkipWithError("the file is refused");
            return;
        }
        ratios.push_back(guarded.back() / bare.back());
        state.SetIterationTime(guarded.back() / 1000.0);
    }
    state.counters["bare"] = quantile(bare, 0.5);
    state.counters["guarded"] = quantile(guarded, 0.5);
    state.counters["two"] = quantile(twoAtOnce, 0.5) / quantile(bare, 0.5);
    state.counters["ratio"] = quantile(guarded, 0.5) / quantile(bare, 0.5);
    state.counters["lower"] = quantile(ratios, 0.25);
    state.counters["upper"] = quantile(ratios, 0.75);
}

void add(const bench::GuardScene& scene)
{
    const auto kilobytes = std::filesystem::file_size(scene.path) / 1000;
    benchmark::RegisterBenchmark((scene.kind + ", " + std::to_string(kilobytes) + " kB").c_str(),
                                 guardedToBare, scene.path)
        ->Iterations(pairsOfLoadings)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    CoinLibrary::init();
    for (const bench::GuardScene& scene : bench::writeGuardScenes(folder.path().toStdString()))
        add(scene);
    for (const bench::GuardScene& scene : bench::realGuardScenes(KT_SCENES_DIR))
        add(scene);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
