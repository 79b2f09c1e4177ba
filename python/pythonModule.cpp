// The Python module "ktAnimation", and when the host gets it.
#include "module/ktAnimation.h"
#include "python/documented.h"

#include <kt/ktPythonInit.h>
#include <kt/ktScript.h>

#include <boost/python.hpp>

#include <iostream>

namespace
{

[[noreturn]] void raise(PyObject* type, const char* text)
{
    PyErr_SetString(type, text);
    boost::python::throw_error_already_set();
    throw; // not reached
}

/// An interpreter may import the library's file without a host that makes the module object.
void requireModule()
{
    if (!ktAnimation::_the)
        raise(PyExc_RuntimeError, "there is no animation module: no host has called initPlugin()");
}

std::vector<std::string> getAnimations()
{
    requireModule();
    return ktAnimation::pyGetAnimations();
}

/// `drive` for Python: None would come as a null name, which names no animation, so it is refused as other
/// wrong arguments are.
template <void (*drive)(const char*)>
void driveByName(const char* name)
{
    if (!name)
        raise(PyExc_TypeError, "the name of an animation must be a string, not None");
    requireModule();
    drive(name);
}

} // namespace

BOOST_PYTHON_MODULE(ktAnimation)
{
    using boost::python::arg;
    using boost::python::def;

    const boost::python::docstring_options options(true, false, false);

    def("getAnimations", &getAnimations);
    document("getAnimations", "Returns all animations.\n\n"
                              "@return: The names of all the animations.\n\n"
                              "@rtype: list of strings");
    def("startAnimation", &driveByName<&ktAnimation::pyStartAnimation>, arg("name"));
    document("startAnimation", "Starts an animation.\n\n"
                               "@param name: The name of the animation.\n\n"
                               "@type name: string");
    def("stopAnimation", &driveByName<&ktAnimation::pyStopAnimation>, arg("name"));
    document("stopAnimation", "Stops an animation.\n\n"
                              "@param name: The name of the animation.\n\n"
                              "@type name: string");
    def("pauseAnimation", &driveByName<&ktAnimation::pyPauseAnimation>, arg("name"));
    document("pauseAnimation", "Pauses an animation.\n\n"
                               "@param name: The name of the animation.\n\n"
                               "@type name: string");
    def("continueAnimation", &driveByName<&ktAnimation::pyContinueAnimation>, arg("name"));
    document("continueAnimation", "Continues an animation.\n\n"
                                  "@param name: The name of the animation.\n\n"
                                  "@type name: string");
    def("resetAnimation", &driveByName<&ktAnimation::pyResetAnimation>, arg("name"));
    document("resetAnimation", "Resets an animation.\n\n"
                               "@param name: The name of the animation.\n\n"
                               "@type name: string");
    def("toggleAnimation", &driveByName<&ktAnimation::pyToggleAnimation>, arg("name"));
    document("toggleAnimation", "Toggles an animation.\n\n"
                                "@param name: The name of the animation.\n\n"
                                "@type name: string");
}

namespace
{

void pythonInit(bool destroy)
{
    static bool isCreated = false;
    if (destroy) {
        std::cout << "pythonInit: destroy ktAnimation!" << std::endl;
        return;
    }
    if (!isCreated) {
        boost::python::detail::init_module("ktAnimation", init_module_ktAnimation);
        isCreated = true;
    }
    ktScript::run("import ktAnimation");
    ktScript::run("from ktAnimation import *");
}

const ktPythonInit registrar(pythonInit);

} // namespace
