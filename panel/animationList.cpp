#include "listwidget/ktListViewItem.h"
#include "module/ktAnimation.h"
#include "panel/ktAnimationGUIW.h"
#include "registry/timeSensors.h"

namespace
{

/// Rows are looked up by their text as Latin-1.
QByteArray rowName(const QListWidgetItem* item)
{
    return item->data(Qt::DisplayRole).toString().toLatin1();
}

} // namespace

void ktAnimation::addAnimationRow(const ktAnimationInfo& animation)
{
    QListWidgetItem* item = new ktListViewItem(_main->_animationList);
    item->setData(Qt::DisplayRole, animation.name);
}

void ktAnimation::animationDisplayList()
{
    ktAnimationListWidget* list = _main->_animationList;
    list->viewport()->setUpdatesEnabled(false);
    list->clear();
    for (const ktAnimationInfo& animation : _animations)
        addAnimationRow(animation);
    list->viewport()->setUpdatesEnabled(true);
    list->viewport()->repaint();
    _current = nullptr;
}

void ktAnimation::animationSelected()
{
    const QList<QListWidgetItem*> selected = _main->_animationList->selectedItems();
    _current = selected.size() == 1 ? findAnimation(rowName(selected.first()).constData()) : nullptr;
    animationDisplayProperties();
}

void ktAnimation::animationDelete()
{
    const ktAnimationListWidget* list = _main->_animationList;
    for (int i = 0; i < list->count(); ++i) {
        const QListWidgetItem* item = list->item(i);
        if (item->listWidget() && item->isSelected())
            removeRecord(rowName(item).constData());
    }
    animationDisplayList();
    animationDisplayProperties();
}

void ktAnimation::animationRenamed(QListWidgetItem* item, int, const QString&)
{
    if (!_current || !item)
        return;
    // Looked up as Latin-1, unlike the other edits; the record takes the new name whether or not a node was
    // found.
    const std::vector<ktNodePtr> nodes = ktScenegraph::findNodes(_current->name.toLatin1().constData());
    _current->name = item->data(Qt::DisplayRole).toString();
    const QByteArray name = _current->name.toUtf8();
    for (const ktNodePtr& node : nodes) {
        if (timeSensorOf(node))
            ktScenegraph::setNodeName(true, node, name.constData(), true);
    }
}
