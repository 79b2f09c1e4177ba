#include "host/app/ProjectMessage.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>

namespace kthost
{
namespace
{

const char* const loadingKey = "_loading";

} // namespace

void tellModules(ProjectStep step)
{
    ktMessage& project = ktFileIO::getProject();
    project.set(loadingKey, step == ProjectStep::Load, false);
    ktController::deliver(project);
    project.remove(loadingKey);
}

ProjectProbe::ProjectProbe() : _before(ktFileIO::getProject()) {}

ProjectProbe::~ProjectProbe()
{
    ktFileIO::getProject() = _before;
}

} // namespace kthost
