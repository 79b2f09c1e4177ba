#include "host/scripting/ScriptStreams.h"

#include "host/scripting/values.h"

#include <kt/ktLog.h>

#include <boost/python.hpp>

#include <QCoreApplication>

#include <iostream>
#include <mutex>
#include <thread>
#include <utility>

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

/// What the threads of scripts printed, until the GUI thread comes for it.
class Inbox
{
public:
    /// To be made on the GUI thread.
    Inbox() : _guiThread(std::this_thread::get_id()) {}

    bool isOnGuiThread() const { return std::this_thread::get_id() == _guiThread; }

    /// Has the GUI thread call collect() as soon as it processes events.
    void put(std::function<void()> call)
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _calls.push_back(std::move(call));
        if (_calls.size() == 1 && qApp)
            QMetaObject::invokeMethod(
                qApp, [this] { collect(); }, Qt::QueuedConnection);
    }

    /// GUI thread. Calls all, in the order in which they came.
    void collect()
    {
        for (const std::function<void()>& call : takeAll())
            call();
    }

private:
    std::vector<std::function<void()>> takeAll()
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        return std::exchange(_calls, {});
    }

    const std::thread::id _guiThread;
    std::mutex _mutex;
    std::vector<std::function<void()>> _calls;
};

// Never destroyed: Python may print until the process is gone.
Inbox& inbox()
{
    static auto* const instance = new Inbox;
    return *instance;
}

/// The log and the listener are for the GUI thread alone. What came before on other threads is done first.
void onGuiThread(std::function<void()> call)
{
    if (!inbox().isOnGuiThread()) {
        inbox().put(std::move(call));
        return;
    }
    inbox().collect();
    call();
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
            onGuiThread([this] { finishLine(); });
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
        onGuiThread([this, text] { tell(text); });
    }

    void tell(const std::string& text)
    {
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

// Never destroyed, either.
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
    inbox();
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
    inbox().collect();
    output().finishLine();
    std::cout.flush();
    errors().finishLine();
}

void ScriptStreams::setListener(Listener called)
{
    listener() = std::move(called);
}

} // namespace kthost
