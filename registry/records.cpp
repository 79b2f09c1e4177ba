#include "listwidget/ktListViewItem.h"
#include "module/ktAnimation.h"
#include "panel/ktAnimationGUIW.h"
#include "registry/timeSensors.h"

#include <kt/NodeUtils.h>

#include <algorithm>

ktAnimation::Record ktAnimation::findRecord(const QString& name)
{
    return std::find_if(_animations.begin(), _animations.end(),
                        [&](const ktAnimationInfo& animation) { return animation.name == name; });
}

ktAnimationInfo& ktAnimation::appendRecord(const QString& name)
{
    _animations.emplace_back();
    _animations.back().name = name;
    return _animations.back();
}

void ktAnimation::removeRecord(const char* name)
{
    const Record found = findRecord(QString::fromUtf8(name));
    if (found == _animations.end())
        return;
    if (_current == &*found)
        _current = nullptr;
    _animations.erase(found);
}

ktAnimationInfo* ktAnimation::findAnimation(const char* name)
{
    const Record found = findRecord(QString::fromUtf8(name));
    return found == _animations.end() ? nullptr : &*found;
}

ktAnimationInfo* ktAnimation::findAnimation(ktNodePtr node)
{
    return timeSensorOf(node) ? findAnimation(NodeUtils::getName(node)) : nullptr;
}

void ktAnimation::insertAnimation(const char* name)
{
    if (findAnimation(name))
        return;
    // Never a null text: a record without a name is not saved, one with the empty name is.
    const ktAnimationInfo& animation = appendRecord(QString::fromUtf8(name ? name : ""));
    addAnimationRow(animation);
    animationDisplayProperties();
}

void ktAnimation::insertAnimation(ktNodePtr node)
{
    if (timeSensorOf(node))
        insertAnimation(NodeUtils::getName(node));
}

void ktAnimation::removeAnimation(const char* name, bool refresh)
{
    removeRecord(name);
    if (!refresh)
        return;
    animationDisplayList();
    animationDisplayProperties();
}

void ktAnimation::removeAnimation(ktNodePtr node, bool refresh)
{
    removeAnimation(NodeUtils::getName(node), refresh);
}

void ktAnimation::clearAnimations()
{
    _animations.clear();
    _main->_animationList->clear();
    _current = nullptr;
    animationDisplayProperties();
}
