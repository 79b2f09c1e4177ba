#pragma once

#include <kt/ktMessage.h>

#include <string>

namespace kthost
{

/// Message 8192 about ktFileIO::getProject(): modules take what is theirs from it, or put it in.
enum class ProjectStep { Load, Save };

/// Delivers the message, and answers how many modules failed; "_loading" is in the project only meanwhile.
int tellModules(ProjectStep step);

/// Says of so many modules that they failed to say what they keep.
std::string saidOfFailures(int modules);

/// A question to modules that leaves no trace: the project is put back as it was when this goes.
class ProjectProbe
{
public:
    ProjectProbe();
    ~ProjectProbe();
    ProjectProbe(const ProjectProbe&) = delete;
    ProjectProbe& operator=(const ProjectProbe&) = delete;

private:
    ktMessage _before;
};

} // namespace kthost
