#include "listwidget/ktAnimationListWidget.h"

#include "module/ktAnimation.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <kt/ktShortcut.h>

#include <QKeyEvent>
#include <QMenu>

#include <iostream>

namespace
{

/// Start, Pause/Continue, Reset, Select Nodes and Delete lead the menu.
constexpr int entriesThatNeedASelection = 5;

QString keyText(Qt::Key key)
{
    return ktShortcut::convertKey(key, 0, false);
}

} // namespace

ktAnimationListWidget::ktAnimationListWidget(QWidget* parent, const char*, Qt::WindowFlags)
    : QListWidget(parent)
{
    setAcceptDrops(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setFocusPolicy(Qt::StrongFocus);
    setResizeMode(QListView::Fixed);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, SIGNAL(customContextMenuRequested(const QPoint&)), SLOT(showPopup(const QPoint&)));
    connect(this, SIGNAL(itemDoubleClicked(QListWidgetItem*)), SLOT(animStart()));
    connect(this, SIGNAL(itemSelectionChanged()), SLOT(animSelected()));
    buildMenu();
    animSelected();
}

void ktAnimationListWidget::buildMenu()
{
    // The entries have no shortcuts of their own: what stands after the tab is shown as the key, and
    // keyPressEvent() acts on it while the list has the focus. The letter of Reset is translated with its
    // entry; the other keys are the host's.
    const struct
    {
        QString text;
        const char* slot;
    } entries[] = {
        {tr("Start\t") + keyText(Qt::Key_Return), SLOT(animStart())},
        {tr("Pause/Continue\t") + keyText(Qt::Key_Space), SLOT(animToggle())},
        {tr("Reset\tR"), SLOT(animReset())},
        {tr("Select Nodes"), SLOT(animShowNodes())},
        {tr("Delete\t") + keyText(Qt::Key_Delete), SLOT(animDelete())},
        {tr("Refresh"), SLOT(animRefresh())},
        {tr("Clear"), SLOT(animClear())},
    };
    _menu = new QMenu(this);
    for (const auto& entry : entries)
        _menu->addAction(entry.text, this, entry.slot, QKeySequence());
}

QDrag* ktAnimationListWidget::dragObject()
{
    return nullptr;
}

std::vector<std::string> ktAnimationListWidget::selectedNames() const
{
    std::vector<std::string> names;
    for (const QListWidgetItem* item : selectedItems())
        names.emplace_back(item->data(Qt::DisplayRole).toString().toLatin1().constData());
    return names;
}

void ktAnimationListWidget::animRefresh()
{
    ktAnimation::_the->refreshAnimations();
}

void ktAnimationListWidget::animDelete()
{
    emit onDelete();
}

void ktAnimationListWidget::animClear()
{
    ktAnimation::_the->clearAnimations();
}

void ktAnimationListWidget::animStart()
{
    for (const std::string& name : selectedNames()) {
        ktAnimation::_the->startAnimation(name.c_str());
        std::cout << "Playing " << name << std::endl;
    }
}

void ktAnimationListWidget::animToggle()
{
    for (const std::string& name : selectedNames())
        ktAnimation::_the->toggleAnimation(name.c_str());
}

void ktAnimationListWidget::animReset()
{
    for (const std::string& name : selectedNames())
        ktAnimation::_the->resetAnimation(name.c_str());
}

void ktAnimationListWidget::animSelected()
{
    const bool hasSelection = !selectedItems().isEmpty();
    const QList<QAction*> entries = _menu->actions();
    for (int i = 0; i < entriesThatNeedASelection; ++i)
        entries[i]->setEnabled(hasSelection);
}

void ktAnimationListWidget::animShowNodes()
{
    const std::vector<ktNodePtr> nodes = ktScenegraph::findNodes(selectedNames());
    if (nodes.empty())
        return;
    ktSelectionManager::selectNodes(nodes);
    ktScenegraph::scrollToNode(nodes.front());
}

void ktAnimationListWidget::showPopup(const QPoint& point)
{
    _menu->popup(mapToGlobal(point));
}

void ktAnimationListWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = event->modifiers() == Qt::NoModifier ? event->key() : 0;
    switch (key) {
    case Qt::Key_Space:
        animToggle();
        break;
    case Qt::Key_R:
        animReset();
        break;
    case Qt::Key_Return:
        animStart();
        break;
    case Qt::Key_Delete:
        emit onDelete();
        break;
    default:
        QAbstractItemView::keyPressEvent(event);
        break;
    }
}
