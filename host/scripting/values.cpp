#include "host/scripting/values.h"

#include <boost/python.hpp>

#include <QFile>

#include <limits>

namespace kthost
{
namespace
{

namespace py = boost::python;
using Strings = std::vector<std::string>;

struct StringListConverter
{
    static PyObject* convert(const Strings& strings)
    {
        py::list list;
        for (const std::string& text : strings)
            list.append(py::str(text.data(), text.size()));
        return py::incref(list.ptr());
    }
};

bool isText(const py::object& value)
{
    return PyString_Check(value.ptr()) || PyUnicode_Check(value.ptr());
}

Strings toStrings(const py::object& value)
{
    Strings strings;
    forEachItem(value,
                [&](const py::object& item) { strings.push_back(toBytes(item, "a list in an attribute")); });
    return strings;
}

} // namespace

void raise(PyObject* type, const std::string& text)
{
    PyErr_SetString(type, text.c_str());
    py::throw_error_already_set();
    throw; // not reached
}

void forEachItem(const py::object& items, const std::function<void(const py::object&)>& take)
{
    const py::handle<> iterator(PyObject_GetIter(items.ptr()));
    while (PyObject* item = PyIter_Next(iterator.get()))
        take(py::object(py::handle<>(item)));
    if (PyErr_Occurred())
        py::throw_error_already_set();
}

void registerStringListConverter()
{
    const auto* known = py::converter::registry::query(py::type_id<Strings>());
    if (!known || !known->m_to_python)
        py::to_python_converter<Strings, StringListConverter>();
}

py::object toPython(const boost::any& value)
{
    if (const bool* truth = boost::any_cast<bool>(&value))
        return py::object(*truth);
    if (const int* number = boost::any_cast<int>(&value))
        return py::object(*number);
    if (const double* number = boost::any_cast<double>(&value))
        return py::object(*number);
    if (const std::string* text = boost::any_cast<std::string>(&value))
        return py::str(text->data(), text->size());
    if (const Strings* strings = boost::any_cast<Strings>(&value))
        return py::object(*strings);
    return {};
}

boost::any toAttribute(const py::object& value)
{
    PyObject* held = value.ptr();
    if (PyBool_Check(held))
        return held == Py_True;
    if (PyInt_Check(held) || PyLong_Check(held)) {
        const long number = PyInt_AsLong(held);
        if (PyErr_Occurred())
            py::throw_error_already_set();
        if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
            raise(PyExc_OverflowError, "an attribute holds whole numbers of 32 bits");
        return static_cast<int>(number);
    }
    if (PyFloat_Check(held))
        return PyFloat_AS_DOUBLE(held);
    if (isText(value))
        return toBytes(value, "an attribute");
    if (PyList_Check(held) || PyTuple_Check(held))
        return toStrings(value);
    raise(PyExc_TypeError, std::string("an attribute holds a bool, int, float, str or list of str, not ") +
                               Py_TYPE(held)->tp_name);
}

std::string toBytes(const py::object& value, const char* what)
{
    if (PyUnicode_Check(value.ptr())) {
        const py::object bytes{py::handle<>(PyUnicode_AsUTF8String(value.ptr()))};
        return toBytes(bytes, what);
    }
    if (!PyString_Check(value.ptr()))
        raise(PyExc_TypeError, std::string(what) + " takes a string, not " + Py_TYPE(value.ptr())->tp_name);
    return {PyString_AS_STRING(value.ptr()), static_cast<std::size_t>(PyString_GET_SIZE(value.ptr()))};
}

QString toPath(const py::object& value)
{
    const std::string bytes = toBytes(value, "a file name");
    if (bytes.empty() || bytes.find('\0') != std::string::npos)
        raise(PyExc_ValueError, "the file name is empty, or holds a null byte");
    const QByteArray name = QByteArray::fromStdString(bytes);
    return PyUnicode_Check(value.ptr()) ? QString::fromUtf8(name) : QFile::decodeName(name);
}

} // namespace kthost
