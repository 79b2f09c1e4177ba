#pragma once

#include <boost/any.hpp>
#include <boost/python/dict.hpp>
#include <boost/python/object.hpp>

#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace kthost
{

/// Lets C++ functions give a std::vector<std::string> to Python, as a list of str. Once a process is enough;
/// further calls do nothing.
void registerStringListConverter();

/// The value of a message attribute for Python: bool, int, float, str or list of str; None for every other
/// type.
boost::python::object toPython(const boost::any& value);

/// The reverse; text of the type unicode becomes UTF-8. Raises TypeError in Python where a message cannot
/// hold it.
boost::any toAttribute(const boost::python::object& value);

/// Bytes of a str, UTF-8 of a unicode. Raises TypeError for anything else; `what` says what it was for.
std::string toBytes(const boost::python::object& value, const char* what);

/// A file's name, given as str or unicode.
QString toPath(const boost::python::object& value);

/// Calls `take` with each item of what Python can iterate over; TypeError for what it cannot.
void forEachItem(const boost::python::object& items,
                 const std::function<void(const boost::python::object&)>& take);

/// Throws a Python exception.
[[noreturn]] void raise(PyObject* type, const std::string& text);

} // namespace kthost
