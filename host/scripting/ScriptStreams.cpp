#include "host/scripting/ScriptStreams.h"

#include "host/scripting/values.h"

#include <kt/ktLog.h>

#include <boost/python.hpp>

#include <iostream>

#include <unistd.h>

namespace kthost
{
namespace
{

namespace py = boost::python;

ScriptStreams::Listener& listener()
{
    static auto* const instance = new ScriptStreams::Listener;
    return *instance;
}

/// What scripts see as sys.stdout or sys.stderr: as much of a file as print and the standard library ask for.
class Stream
{
public:
    explicit Stream(bool isError) : _isError(isError) {}

    void write(const py::object& text) { writeBytes(toBytes(text, "write()")); }

    void writeLines(const py::object& lines)
    {
        forEachItem(lines, [this](const py::object& line) { write(line); });
    }

    void flush()
    {
        if (_isError)
            finishLine();
        else
            std::cout.flush();
    }

    bool isTerminal() const { return isatty(fileNumber()) != 0; }
    int fileNumber() const { return _isError ? STDERR_FILENO : STDOUT_FILENO; }

    void finishLine()
    {
        if (!_line.empty())
            logLine();
    }

    int softSpace = 0; ///< Kept by the print statement.

private:
    void writeBytes(const std::string& text)
    {
        if (!_isError)
            std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
        if (listener())
            listener()(text, _isError);
        std::size_t begin = 0;
        for (std::size_t end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
            _line.append(text, begin, end - begin);
            logLine();
        }
        _line.append(text, begin);
    }

    void logLine()
    {
        const std::string line = std::move(_line);
        _line.clear();
        if (_isError) {
            std::cout.flush(); // what came before it stands before it
            ktLog::error("%s", line.c_str());
        } else {
            ktLog::info("%s", line.c_str());
        }
    }

    bool _isError;
    std::string _line; ///< Not ended yet.
};

// Never destroyed: Python may print until the process is gone.
Stream& output()
{
    static auto* const instance = new Stream(false);
    return *instance;
}

Stream& errors()
{
    static auto* const instance = new Stream(true);
    return *instance;
}

} // namespace

void ScriptStreams::install()
{
    py::object streamClass =
        py::class_<Stream, boost::noncopyable>("HostStream", "A stream of the host's.", py::no_init)
            .def("write", &Stream::write)
            .def("writelines", &Stream::writeLines)
            .def("flush", &Stream::flush)
            .def("isatty", &Stream::isTerminal)
            .def("fileno", &Stream::fileNumber)
            .def_readwrite("softspace", &Stream::softSpace);
    streamClass.attr("encoding") = "UTF-8"; // what unicode is printed as
    streamClass.attr("errors") = py::object();
    streamClass.attr("closed") = false;
    streamClass.attr("mode") = "w";

    py::object sys = py::import("sys");
    for (const auto& [name, stream] : {std::pair("stdout", &output()), std::pair("stderr", &errors())}) {
        const py::object object(py::ptr(stream));
        sys.attr(name) = object;
        sys.attr((std::string("__") + name + "__").c_str()) = object;
    }
}

void ScriptStreams::finishLines()
{
    output().finishLine();
    std::cout.flush();
    errors().finishLine();
}

void ScriptStreams::setListener(Listener called)
{
    listener() = std::move(called);
}

} // namespace kthost
