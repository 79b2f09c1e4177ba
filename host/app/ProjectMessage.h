#pragma once

#include <kt/ktMessage.h>

namespace kthost
{

/// Message 8192 about ktFileIO::getProject(): modules take what is theirs from it, or put it in.
enum class ProjectStep { Load, Save };

/// Delivers the message; "_loading" is in the project only meanwhile.
void tellModules(ProjectStep step);

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
