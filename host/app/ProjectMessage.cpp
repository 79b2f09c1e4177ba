#include "host/app/ProjectMessage.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>

namespace kthost
{
namespace
{

const char* const loadingKey = "_loading";

} // namespace

int tellModules(ProjectStep step)
{
    ktMessage& project = ktFileIO::getProject();
    // A module may ask the others from within its own turn; the turn then goes on as it was.
    const boost::any before = project.get(loadingKey);
    project.set(loadingKey, step == ProjectStep::Load, false);
    const int failed = ktController::deliver(project);
    if (before.empty())
        project.remove(loadingKey);
    else
        project.set(loadingKey, before, false);
    return failed;
}

std::string saidOfFailures(int modules)
{
    return modules == 1 ? "a module failed to say what it keeps"
                        : std::to_string(modules) + " modules failed to say what they keep";
}

ProjectProbe::ProjectProbe() : _before(ktFileIO::getProject()) {}

ProjectProbe::~ProjectProbe()
{
    ktFileIO::getProject() = _before;
}

} // namespace kthost
