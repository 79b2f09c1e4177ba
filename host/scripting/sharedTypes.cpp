// Part of the library of Boost.Python, not of the host. Its registry keys types by names that stay where they
// were when a type was first asked for. A plug-in that asks first and is unloaded would leave a name behind
// that is gone; so the types that pass between host and plug-ins are asked for here.
#include <boost/python.hpp>

#include <string>
#include <vector>

namespace
{

[[maybe_unused]] const boost::python::converter::registration* const sharedTypes[] = {
    &boost::python::converter::registered<std::vector<std::string>>::converters,
    &boost::python::converter::registered<const char*>::converters,
};

} // namespace
