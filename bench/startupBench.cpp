// From the start of a process to its first rendered frame: the host's window, and the barest one with a
// viewer in it.
#include <benchmark/benchmark.h>

#include <QProcess>
#include <QStringList>

#include <chrono>

namespace
{

constexpr int LongestStart = 60000; ///< Milliseconds; a start that takes longer has failed.

/// Runs the probe until its first frame. Its words go to our standard error stream.
bool startOnce(const QStringList& words)
{
    QProcess probe;
    probe.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    probe.start(QStringLiteral(KT_STARTUP_PROBE), words);
    return probe.waitForFinished(LongestStart) && probe.exitStatus() == QProcess::NormalExit &&
           probe.exitCode() == 0;
}

void measureStart(benchmark::State& state, const QStringList& words)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        state.SkipWithError("there is no display to open a window on");
        return;
    }
    startOnce(words); // the first one reads the libraries from the disk
    for (auto unused : state) {
        static_cast<void>(unused);
        const auto start = std::chrono::steady_clock::now();
        if (!startOnce(words)) {
            state.SkipWithError("the window did not show a frame");
            return;
        }
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}

void bareWindow(benchmark::State& state)
{
    measureStart(state, {"bare"});
}

void hostWindow(benchmark::State& state)
{
    measureStart(state, {"host", KT_PLUGIN_FOLDER});
}

} // namespace

BENCHMARK(bareWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(hostWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
