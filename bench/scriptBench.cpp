// What a call from Python costs over the same call in C++, and whether calls leave memory behind.
#include "host/scripting/Interpreter.h"
#include "host/scripting/ScriptHost.h"
#include "module/ktAnimation.h"

#include <kt/ktController.h>
#include <kt/ktScenegraph.h>
#include <osg/ChangeList.h>
#include <osg/Name.h>
#include <osg/PThreadBase.h>
#include <osg/TimeSensor.h>
#include <qkt/QKTDockWindowManager.h>

#include <benchmark/benchmark.h>
#include <boost/python.hpp>

#include <QApplication>
#include <QFile>
#include <QMainWindow>

#include <stdexcept>

#include <unistd.h>

namespace
{

/// The scripts here ask the host for nothing.
class NoHost : public kthost::ScriptHost
{
    void open(const QString&) override {}
    void save(const QString&) override {}
    void advance(double, double, const std::function<void()>&) override {}
    void writePicture(const QString&, const QSize&) override {}
    std::vector<Sensor> sensors() override { return {}; }
};

osg::ChangeList& changes()
{
    static osg::ChangeList list;
    return list;
}

void nothing(const char*) {}

PyObject* scriptFunction(const char* name)
{
    PyObject* found = PyDict_GetItemString(PyModule_GetDict(PyImport_AddModule("__main__")), name);
    if (!found)
        throw std::runtime_error(std::string("scripts have no ") + name);
    return found;
}

/// Calls with one argument, or none.
void call(PyObject* function, PyObject* argument)
{
    PyObject* result = PyObject_CallFunctionObjArgs(function, argument, nullptr);
    Py_XDECREF(result);
}

void callFromPython(benchmark::State& state, PyObject* function)
{
    const boost::python::handle<> name(PyString_FromString("Door"));
    for (auto _ : state) {
        call(function, name.get());
        changes().clear(); // as each frame does
    }
}

void startInCpp(benchmark::State& state)
{
    for (auto _ : state) {
        ktAnimation::pyStartAnimation("Door");
        changes().clear();
    }
}

void emptyCall(benchmark::State& state)
{
    const boost::python::object function = boost::python::make_function(nothing);
    callFromPython(state, function.ptr());
}

void startFromPython(benchmark::State& state)
{
    callFromPython(state, scriptFunction("startAnimation"));
}

double residentKilobytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    constexpr double kilobyte = 1024.0;
    return file.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) /
           kilobyte;
}

/// A million calls of each; the counter says how much larger the process is afterwards.
void millionCalls(benchmark::State& state)
{
    constexpr int calls = 1000000;
    PyObject* start = scriptFunction("startAnimation");
    PyObject* list = scriptFunction("getAnimations");
    const boost::python::handle<> name(PyString_FromString("Door"));
    const auto callBoth = [&](int times) {
        for (int i = 0; i < times; ++i) {
            call(start, name.get());
            call(list, nullptr);
            changes().clear();
        }
    };
    callBoth(calls / 100);
    const double before = residentKilobytes();
    for (auto _ : state)
        callBoth(calls);
    state.counters["grown_kB"] = residentKilobytes() - before;
}

} // namespace

BENCHMARK(startInCpp);
BENCHMARK(emptyCall);
BENCHMARK(startFromPython);
BENCHMARK(millionCalls)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QMainWindow window;
    QKTDockWindowManager docks(&window);
    ktController::setMainWindow(&window, &docks);
    osg::PThreadBase::setCurrentChangeList(&changes());
    ktAnimation module;
    const osg::NodePtr root = osg::Node::create();
    const osg::NodePtr door = osg::Node::create(osg::TimeSensor::create());
    door->addAttachment(osg::Name::create("Door"));
    root->addChild(door);
    ktScenegraph::setRootNode(root);
    module.refreshAnimations();
    NoHost host;
    kthost::Interpreter interpreter(host, QStringLiteral(KT_PYTHON_HOME));
    interpreter.announce();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    osg::PThreadBase::setCurrentChangeList(nullptr);
    ktScenegraph::setRootNode({});
    return 0;
}
