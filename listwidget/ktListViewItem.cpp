#include "listwidget/ktListViewItem.h"

ktListViewItem::ktListViewItem(QListWidget* parent) : QListWidgetItem(parent, QListWidgetItem::Type) {}

int ktListViewItem::rtti() const
{
    return _rtti;
}
