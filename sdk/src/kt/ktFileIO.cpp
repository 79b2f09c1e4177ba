#include <kt/ktFileIO.h>

#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>

ktMessage& ktFileIO::getProject()
{
    static auto* const project = new ktMessage(ktMessageId::Project);
    return *project;
}

void ktFileIO::clearProject()
{
    getProject() = ktMessage(ktMessageId::Project);
}
