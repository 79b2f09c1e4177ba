// What it costs to let a process of its own read a scene file first: guarded reading against unguarded, on
// the same file, by the wall clock, since two processes take part.
#include "bench/support/SceneFile.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/SceneReader.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace
{

using namespace kthost;

/// A recorded movement: one sensor, some 40 interpolators of many keys, as large real files are.
std::string recording(int keys)
{
    std::string text = "#VRML V2.0 utf8\nDEF T TimeSensor { cycleInterval 10 loop TRUE }\n";
    for (int joint = 0; joint < 40; ++joint) {
        const std::string name = std::to_string(joint);
        std::string times;
        std::string values;
        for (int key = 0; key < keys; ++key) {
            times += std::to_string(static_cast<double>(key) / keys) + " ";
            values += "0.577 0.577 0.577 " + std::to_string(0.001 * key) + ", ";
        }
        text += "DEF J" + name + " Transform { children Shape { geometry Box {} } }\nDEF I" + name +
                " OrientationInterpolator { key [ " + times + " ] keyValue [ " + values +
                " ] }\nROUTE T.fraction_changed TO I" + name + ".set_fraction\nROUTE I" + name +
                ".value_changed TO J" + name + ".set_rotation\n";
    }
    return text;
}

bench::SceneFile fileOf(const benchmark::State& state)
{
    const int size = static_cast<int>(state.range(1));
    return state.range(0) == 0 ? bench::SceneFile(recording(size)) : bench::SceneFile(size, 0);
}

void read(benchmark::State& state, SceneGuard* guard)
{
    CoinLibrary::init();
    const bench::SceneFile file = fileOf(state);
    for (auto _ : state) {
        SceneReading reading = SceneReader::read(file.path(), {}, guard);
        if (!reading)
            state.SkipWithError(reading.error.c_str());
        state.PauseTiming(); // letting go of the scene is no part of reading it
        reading.root = {};
        state.ResumeTiming();
    }
    state.SetLabel(std::to_string(std::filesystem::file_size(file.path()) / 1000) + " kB");
}

void unguarded(benchmark::State& state)
{
    read(state, nullptr);
}

void guarded(benchmark::State& state)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    read(state, &guard);
}

// First argument 0: a recording of that many keys a joint; 1: a scene of that many sensors.
void cases(benchmark::internal::Benchmark* bench)
{
    bench->Args({0, 80})
        ->Args({0, 800})
        ->Args({1, 100})
        ->Args({1, 1000})
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}
BENCHMARK(unguarded)->Apply(cases);
BENCHMARK(guarded)->Apply(cases);

} // namespace
