#include "module/ktAnimation.h"
#include "registry/ktNodeFinder.h"

#include <kt/NodeUtils.h>
#include <kt/ktScenegraph.h>
#include <osg/TimeSensor.h>

#include <set>

void ktAnimation::refreshAnimations()
{
    std::set<ktAnimationInfo*> unmatched;
    for (ktAnimationInfo& animation : _animations)
        unmatched.insert(&animation);

    std::vector<ktNodePtr> nodes;
    ktNodeFinder::findByType<osg::TimeSensor>(ktScenegraph::getRootNode(), nodes);
    for (const ktNodePtr& node : nodes) {
        const char* text = NodeUtils::getName(node);
        const QString name = QString::fromUtf8(text ? text : "");
        const Record found = findRecord(name);
        if (found != _animations.end())
            unmatched.erase(&*found);
        else
            appendRecord(name);
    }

    // A vanished animation is removed by its name as Latin-1, not by its pointer: one whose name has
    // characters outside ASCII stays, and users rely on its comment and hotkeys being there when the node
    // comes back. The names are taken beforehand, since such a name can also hit another record of the set.
    std::vector<QByteArray> vanished;
    for (const ktAnimationInfo* animation : unmatched)
        vanished.push_back(animation->name.toLatin1());
    for (const QByteArray& name : vanished)
        removeRecord(name.constData());

    animationDisplayList();
    animationDisplayProperties();
}
