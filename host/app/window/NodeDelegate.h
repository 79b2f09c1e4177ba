#pragma once

#include <QStyledItemDelegate>

namespace kthost
{

/// Paints a row of the scene tree: the name, and behind it, where there is room, the kind in a quieter
/// colour.
class NodeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace kthost
