// The Python module "ktHost": what scripts can have done by the host.
#include "host/scripting/hostModule.h"

#include "host/scripting/ScriptHost.h"
#include "host/scripting/values.h"

#include <kt/NodeUtils.h>
#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>

#include <boost/python.hpp>
#include <boost/python/raw_function.hpp>

#include <cmath>

namespace
{

using namespace kthost;
namespace py = boost::python;

ScriptHost* scriptHost = nullptr;
PyObject* hostError = nullptr; ///< ktHost.Error

/// The most pixels that one side of a picture can have.
constexpr int longestSide = 16384;

/// Runs `call` on the host; what it throws is raised as ktHost.Error.
template <class Call>
auto onHost(Call&& call)
{
    if (!scriptHost)
        raise(hostError, "there is no host any more");
    try {
        return call(*scriptHost);
    } catch (const py::error_already_set&) {
        throw;
    } catch (const std::exception& error) {
        raise(hostError, error.what());
    }
}

py::str nameOf(const ktNodePtr& node)
{
    const char* name = NodeUtils::getName(node);
    return py::str(name ? name : "");
}

void open(const py::object& file)
{
    const QString path = toPath(file);
    onHost([&](ScriptHost& host) { host.open(path); });
}

void save(const py::object& file)
{
    const QString path = toPath(file);
    onHost([&](ScriptHost& host) { host.save(path); });
}

void throwIfInterrupted()
{
    if (PyErr_CheckSignals() != 0)
        py::throw_error_already_set();
}

void advance(double seconds, double framesPerSecond)
{
    constexpr double mostFramesPerSecond = 1e6;
    if (!std::isfinite(seconds) || seconds < 0.0)
        raise(PyExc_ValueError, "advance() takes a number of seconds from 0");
    if (!(framesPerSecond >= 0.0 && framesPerSecond <= mostFramesPerSecond))
        raise(PyExc_ValueError, "advance() takes up to a million steps a second");
    onHost([&](ScriptHost& host) { host.advance(seconds, framesPerSecond, throwIfInterrupted); });
}

py::object sendMessage(const py::tuple& arguments, const py::dict& attributes)
{
    if (py::len(arguments) != 1)
        raise(PyExc_TypeError, "sendMessage() takes the message's name and attributes by keyword");
    const std::string name = toBytes(arguments[0], "sendMessage()");
    ktMessage message;
    const py::list keys = attributes.keys();
    for (py::ssize_t i = 0; i < py::len(keys); ++i) {
        const std::string key = toBytes(keys[i], "an attribute's name");
        message.set(key == "animation" ? "animation-name" : key, toAttribute(attributes[keys[i]]));
    }
    return onHost([&](ScriptHost&) { return py::object(ktController::sendMessage(name.c_str(), message)); });
}

py::dict describe(const ScriptHost::Sensor& entry)
{
    const osg::TimeSensor& sensor = *entry.sensor;
    py::dict fields;
    fields["name"] = nameOf(entry.node);
    fields["active"] = sensor.isActive();
    fields["stop"] = sensor.isStopped();
    fields["time"] = sensor.getTime();
    fields["startTime"] = sensor.getStartTime();
    fields["fraction"] = sensor.getFraction();
    fields["cycleInterval"] = sensor.getCycleInterval();
    fields["loop"] = sensor.isLooping();
    return fields;
}

py::list sensors()
{
    return onHost([](ScriptHost& host) {
        py::list list;
        for (const ScriptHost::Sensor& sensor : host.sensors())
            list.append(describe(sensor));
        return list;
    });
}

/// Brings the project up to date as a save does: each module writes its own into it.
py::dict project()
{
    return onHost([](ScriptHost&) {
        ktMessage& message = ktFileIO::getProject();
        message.set("_loading", false, false);
        ktController::deliver(message);
        message.remove("_loading");
        py::dict attributes;
        for (const auto& [key, value] : message.attributes()) {
            if (message.isPersistent(key))
                attributes[py::str(key.data(), key.size())] = toPython(value);
        }
        return attributes;
    });
}

void screenshot(const py::object& file, const py::object& size)
{
    const QString path = toPath(file);
    QSize pixels;
    if (!size.is_none()) {
        if (!PySequence_Check(size.ptr()) || py::len(size) != 2)
            raise(PyExc_TypeError, "screenshot() takes the size as (width, height)");
        pixels = QSize(py::extract<int>(size[0]), py::extract<int>(size[1]));
        if (pixels.isEmpty() || pixels.width() > longestSide || pixels.height() > longestSide)
            raise(PyExc_ValueError, "screenshot() takes sizes from 1 to 16384 pixels a side");
    }
    onHost([&](ScriptHost& host) { host.writePicture(path, pixels); });
}

py::list selection()
{
    py::list names;
    for (const ktNodePtr& node : ktSelectionManager::selectedNodes())
        names.append(nameOf(node));
    return names;
}

int select(const py::object& names)
{
    std::vector<std::string> wanted;
    if (PyString_Check(names.ptr()) || PyUnicode_Check(names.ptr())) {
        wanted.push_back(toBytes(names, "select()"));
    } else {
        forEachItem(names, [&](const py::object& name) { wanted.push_back(toBytes(name, "select()")); });
    }
    const std::vector<ktNodePtr> nodes = ktScenegraph::findNodes(wanted);
    ktSelectionManager::selectNodes(nodes);
    return static_cast<int>(nodes.size());
}

void quit(const py::object& status)
{
    PyErr_SetObject(PyExc_SystemExit, status.ptr());
    py::throw_error_already_set();
}

void defineScene()
{
    py::def("open", open, py::arg("file"),
            "Opens a scene or a project in place of what is open.\n\n"
            "@param file: The file's name.\n\n@type file: string");
    py::def("save", save, py::arg("file"),
            "Saves the project.\n\n@param file: The file's name.\n\n@type file: string");
    py::def("sensors", sensors,
            "Returns the time sensors of the scene, in document order.\n\n"
            "@return: For each its name, active, stop, time, startTime, fraction, cycleInterval and loop.\n\n"
            "@rtype: list of dictionaries");
    py::def("project", project,
            "Returns what would be saved: the project's attributes, each module's brought up to date.\n\n"
            "@return: The attributes by name.\n\n@rtype: dictionary");
    py::def(
        "screenshot", screenshot, (py::arg("file"), py::arg("size") = py::object()),
        "Writes a picture of the scene as it is now.\n\n"
        "@param file: The name of the PNG file.\n\n@type file: string\n\n"
        "@param size: Width and height in pixels; None for the host's own.\n\n@type size: tuple of two ints");
    py::def("selection", selection,
            "Returns the names of the selected nodes.\n\n"
            "@return: The names, in order of selection.\n\n@rtype: list of strings");
    py::def("select", select, py::arg("names"),
            "Selects the nodes of these names, and no others.\n\n"
            "@param names: One name or several.\n\n@type names: string or list of strings\n\n"
            "@return: How many nodes are selected now.\n\n@rtype: int");
}

void defineTime()
{
    py::def("time", ktController::getSimulationTime,
            "Returns the simulation time.\n\n@return: Seconds since the host started.\n\n@rtype: float");
    py::def("advance", advance, (py::arg("seconds"), py::arg("fps") = 0.0),
            "Lets simulation time pass.\n\n@param seconds: How much.\n\n@type seconds: float\n\n"
            "@param fps: Steps a second; 0 for the host's own.\n\n@type fps: float");
    py::def("quit", quit, (py::arg("status") = 0),
            "Ends the script and the program.\n\n@param status: The program's exit status.\n\n"
            "@type status: int");
    py::object send = py::raw_function(sendMessage, 1);
    py::scope().attr("sendMessage") = send;
    send.attr("__doc__") = "Sends a message to whoever listens to its name.\n\n"
                           "@param name: The name of the message.\n\n@type name: string\n\n"
                           "@param attributes: By keyword; animation stands for animation-name.\n\n"
                           "@type attributes: bool, int, float, string or list of strings\n\n"
                           "@return: How many listened.\n\n@rtype: int";
}

} // namespace

BOOST_PYTHON_MODULE(ktHost)
{
    const py::docstring_options options(true, false, false);
    py::scope().attr("__doc__") = "What scripts can have done by the program that they run in.";
    hostError = PyErr_NewException(const_cast<char*>("ktHost.Error"), PyExc_RuntimeError, nullptr);
    py::scope().attr("Error") = py::object(py::handle<>(py::borrowed(hostError)));
    defineScene();
    defineTime();
}

void kthost::makeHostModule()
{
    initktHost();
}

void kthost::setScriptHost(ScriptHost* host)
{
    scriptHost = host;
}
