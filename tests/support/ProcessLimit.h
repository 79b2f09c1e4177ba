#pragma once

#include <csignal>

#include <sys/resource.h>

namespace kt::test
{

/// A limit of this process, and of those that it starts, for as long as one lives.
class ProcessLimit
{
public:
    /// `what` is one of setrlimit's, such as RLIMIT_STACK.
    ProcessLimit(__rlimit_resource_t what, rlim_t value) : _what(what)
    {
        ::getrlimit(what, &_before);
        const rlimit limit{value, _before.rlim_max};
        ::setrlimit(what, &limit);
    }
    ~ProcessLimit() { ::setrlimit(_what, &_before); }
    ProcessLimit(const ProcessLimit&) = delete;
    ProcessLimit& operator=(const ProcessLimit&) = delete;

private:
    __rlimit_resource_t _what;
    rlimit _before{};
};

/// No file may grow beyond this, for as long as one lives. Where `atExcess` is SIG_IGN this process gets an
/// error for it; with SIG_DFL a program that it starts is ended unless it sees to that itself.
class FileSizeLimit
{
public:
    FileSizeLimit(rlim_t bytes, void (*atExcess)(int))
        : _signalBefore(std::signal(SIGXFSZ, atExcess)), _limit(RLIMIT_FSIZE, bytes)
    {
    }
    ~FileSizeLimit() { std::signal(SIGXFSZ, _signalBefore); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*_signalBefore)(int);
    ProcessLimit _limit;
};

} // namespace kt::test
