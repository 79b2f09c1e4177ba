// A frame of running sensors without a picture: the reader's own sensors against ours, in the same scene.
// Both sides end with every moved Transform's translation read, so that what the reader puts off is done on
// both.
#include "bench/support/SceneFile.h"
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneBinding.h"
#include "host/vrml/SceneBuilder.h"
#include "host/vrml/SceneReader.h"

#include <osg/ChangeList.h>
#include <osg/PThreadBase.h>

#include <Inventor/SoDB.h>
#include <Inventor/VRMLnodes/SoVRMLTransform.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/sensors/SoNodeSensor.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace
{

using namespace kthost;

constexpr double frameLength = 1.0 / 25.0;

std::vector<SoVRMLTransform*> transformsOf(SoNode& root)
{
    SoSearchAction search;
    search.setType(SoVRMLTransform::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.setSearchingAll(TRUE);
    search.apply(&root);
    std::vector<SoVRMLTransform*> transforms;
    for (int i = 0; i < search.getPaths().getLength(); ++i)
        transforms.push_back(static_cast<SoVRMLTransform*>(search.getPaths()[i]->getNodeFromTail(0)));
    return transforms;
}

float readBack(const std::vector<SoVRMLTransform*>& transforms)
{
    float sum = 0.0F;
    for (const SoVRMLTransform* transform : transforms)
        sum += transform->translation.getValue()[0];
    return sum;
}

/// What both sides have: the scene, and a view that wants to know when to draw again.
class Stage
{
public:
    explicit Stage(benchmark::State& state)
        : _file(static_cast<int>(state.range(0)), 0),
          _reading(SceneReader::read(_file.path())),
          _transforms(transformsOf(*_reading.root)),
          _view([](void* count, SoSensor*) { ++*static_cast<int*>(count); }, &_redraws)
    {
        _view.attach(_reading.root.get());
    }

    const SceneReading& reading() const { return _reading; }

    void endFrame()
    {
        SoDB::getSensorManager()->processTimerQueue();
        SoDB::getSensorManager()->processDelayQueue(TRUE);
        benchmark::DoNotOptimize(readBack(_transforms));
    }

    /// Both sides must have moved the scene in every frame, or the comparison says nothing.
    void check(benchmark::State& state, float before) const
    {
        if (_redraws < static_cast<int>(state.iterations()) || readBack(_transforms) == before)
            state.SkipWithError("the scene did not move");
    }

    float position() const { return readBack(_transforms); }

private:
    bench::SceneFile _file;
    SceneReading _reading;
    std::vector<SoVRMLTransform*> _transforms;
    int _redraws = 0;
    SoNodeSensor _view;
};

void readersSensors(benchmark::State& state)
{
    Stage stage(state);
    auto* const clock = static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"));
    const double start = clock->getValue().getValue();
    const float before = stage.position();
    double now = start;
    for (auto _ : state) {
        now += frameLength;
        clock->setValue(SbTime(now));
        stage.endFrame();
    }
    stage.check(state, before);
    clock->setValue(SbTime(start));
}
BENCHMARK(readersSensors)->Arg(1000)->Unit(benchmark::kMicrosecond);

void ourSensors(benchmark::State& state)
{
    Stage stage(state);
    const SceneNodes nodes = SceneBuilder::build(*stage.reading().root, stage.reading().names);
    SceneBinding binding(CoinRef<SoNode>(stage.reading().root.get()), nodes.sensors);
    osg::ChangeList recorded;
    osg::ChangeList drained;
    osg::PThreadBase::setCurrentChangeList(&recorded);
    binding.start(0.0);
    const float before = stage.position();
    double now = 0.0;
    for (auto _ : state) {
        now += frameLength;
        for (const osg::TimeSensorPtr& sensor : binding.sensors())
            sensor->advance(now);
        drained.swap(recorded);
        binding.apply(drained);
        drained.clear();
        stage.endFrame();
    }
    stage.check(state, before);
    osg::PThreadBase::setCurrentChangeList(nullptr);
}
BENCHMARK(ourSensors)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace
