#include "host/app/HostLog.h"

#include <cstdio>

namespace kthost
{
namespace
{

HostLog* current = nullptr;

} // namespace

HostLog::HostLog()
{
    current = this;
    ktLog::setSink(sink);
}

HostLog::~HostLog()
{
    ktLog::setSink(nullptr);
    current = nullptr;
}

void HostLog::sink(ktLog::Level level, const char* text)
{
    if (level != ktLog::Level::Info)
        std::fprintf(stderr, "%s\n", text);
    current->_lines.push_back({level, QString::fromUtf8(text)});
    if (current->_lines.size() > mostLines)
        current->_lines.pop_front();
    emit current->logged(current->_lines.back());
}

} // namespace kthost
