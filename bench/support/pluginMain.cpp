// The main() of the benchmarks that go through the built plug-in: it is loaded, its panel in a window,
// off-screen.
#include <kt/ktController.h>
#include <qkt/QKTDockWindowManager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLibrary>
#include <QMainWindow>

#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QMainWindow window;
    QKTDockWindowManager docks(&window);
    ktController::setMainWindow(&window, &docks);
    QLibrary plugin(QStringLiteral(KT_PLUGIN_FILE));
    const auto init = reinterpret_cast<void (*)()>(plugin.resolve("initPlugin"));
    if (!init) {
        std::fprintf(stderr, "%s\n", qPrintable(plugin.errorString()));
        return 1;
    }
    init();
    window.show();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
