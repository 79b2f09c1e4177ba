#include "module/ktAnimation.h"

std::vector<std::string> ktAnimation::pyGetAnimations()
{
    std::vector<std::string> names;
    names.reserve(_the->_animations.size());
    for (const ktAnimationInfo& animation : _the->_animations)
        names.push_back(animation.name.toLatin1().toStdString());
    return names;
}

void ktAnimation::pyStartAnimation(const char* name)
{
    _the->startAnimation(name);
}

void ktAnimation::pyStopAnimation(const char* name)
{
    _the->stopAnimation(name);
}

void ktAnimation::pyPauseAnimation(const char* name)
{
    _the->pauseAnimation(name);
}

void ktAnimation::pyContinueAnimation(const char* name)
{
    _the->continueAnimation(name);
}

void ktAnimation::pyResetAnimation(const char* name)
{
    _the->resetAnimation(name);
}

void ktAnimation::pyToggleAnimation(const char* name)
{
    _the->toggleAnimation(name);
}
