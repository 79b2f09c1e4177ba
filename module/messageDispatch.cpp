#include "module/ktAnimation.h"
#include "persistence/getFromMessage.h"

#include <kt/ktFileIO.h>
#include <kt/ktLog.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>

namespace
{

using Operation = void (ktAnimation::*)(const char*);

void drive(const ktMessage& message, Operation operation)
{
    std::string name;
    message.get<std::string>("animation-name", name);
    if (!name.empty())
        (ktAnimation::_the->*operation)(name.c_str());
}

} // namespace

void ktAnimation::receivedMessage(ktMessage& message)
{
    try {
        switch (message.id()) {
        case ktMessageId::SceneCleared:
            clearAnimations();
            break;
        case ktMessageId::Project:
            loadOrSaveSettings();
            break;
        case ktMessageId::SceneChanged:
            refreshAnimations();
            animationDisplayList();
            animationDisplayProperties();
            break;
        default:
            break;
        }
    } catch (...) {
        ktLog::error("ktAnimation::receivedMessage : An unknown exception occurred!");
    }
}

void ktAnimation::loadOrSaveSettings()
{
    bool loading = false;
    if (!getFromMessage<bool>(ktFileIO::getProject(), "_loading", loading))
        return;
    if (loading)
        animationLoad(ktFileIO::getProject());
    else
        animationSave(ktFileIO::getProject());
}

void ktAnimation::animStartCB(ktMessage& message)
{
    drive(message, &ktAnimation::startAnimation);
}

void ktAnimation::animStopCB(ktMessage& message)
{
    drive(message, &ktAnimation::stopAnimation);
}

void ktAnimation::animToggleCB(ktMessage& message)
{
    drive(message, &ktAnimation::toggleAnimation);
}

void ktAnimation::animPauseCB(ktMessage& message)
{
    drive(message, &ktAnimation::pauseAnimation);
}

void ktAnimation::animContinueCB(ktMessage& message)
{
    drive(message, &ktAnimation::continueAnimation);
}

void ktAnimation::animResetCB(ktMessage& message)
{
    drive(message, &ktAnimation::resetAnimation);
}
