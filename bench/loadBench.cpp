// Loading: the reader alone against the whole of our way from the file to a bound scene, on the same file.
#include "bench/support/SceneFile.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneBinding.h"
#include "host/vrml/SceneBuilder.h"
#include "host/vrml/SceneReader.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace
{

using namespace kthost;

void bareReader(benchmark::State& state)
{
    CoinLibrary::init();
    const bench::SceneFile file(static_cast<int>(state.range(0)), 0);
    for (auto _ : state) {
        SoInput input;
        input.openFile(file.path().c_str());
        CoinRef<SoVRMLGroup> root(SoDB::readAllVRML(&input));
        benchmark::DoNotOptimize(root.get());
        state.PauseTiming(); // letting go of the scene is no part of loading it
        root = {};
        state.ResumeTiming();
    }
}
BENCHMARK(bareReader)->Arg(1000)->Unit(benchmark::kMillisecond);

/// A scene as the host has it once it is loaded.
struct LoadedScene
{
    explicit LoadedScene(const std::string& path)
        : reading(SceneReader::read(path)),
          nodes(SceneBuilder::build(*reading.root, reading.names)),
          binding(CoinRef<SoNode>(reading.root.get()), nodes.sensors)
    {
        binding.start(0.0);
    }

    SceneReading reading;
    SceneNodes nodes;
    SceneBinding binding;
};

void wholeLoading(benchmark::State& state)
{
    CoinLibrary::init();
    const bench::SceneFile file(static_cast<int>(state.range(0)), 0);
    for (auto _ : state) {
        auto scene = std::make_unique<LoadedScene>(file.path());
        benchmark::DoNotOptimize(scene.get());
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(wholeLoading)->Arg(1000)->Unit(benchmark::kMillisecond);

/// Groups that hold the one before them twice: 2^levels ways to the first.
std::string lattice(int levels)
{
    std::string text = "#VRML V2.0 utf8\nDEF N0 Group { }\n";
    for (int i = 1; i <= levels; ++i) {
        const std::string below = "N" + std::to_string(i - 1);
        text += "DEF N" + std::to_string(i) + " Group { children [ USE " + below + " USE " + below + " ] }\n";
    }
    return text;
}

void buildLattice(benchmark::State& state)
{
    const bench::SceneFile file(lattice(static_cast<int>(state.range(0))));
    const SceneReading reading = SceneReader::read(file.path());
    for (auto _ : state)
        benchmark::DoNotOptimize(SceneBuilder::build(*reading.root, reading.names).root.get());
    state.SetComplexityN(state.range(0));
}
BENCHMARK(buildLattice)
    ->Arg(40)
    ->Arg(80)
    ->Arg(160)
    ->Arg(320)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

} // namespace
