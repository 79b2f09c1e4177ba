#include "host/app/window/NodeDelegate.h"

#include "host/app/window/SceneTreeModel.h"

#include <QApplication>
#include <QPainter>

namespace kthost
{
namespace
{

constexpr int gap = 8;
constexpr int leastKind = 24; ///< Less room than this holds nothing that can be read.
constexpr qreal quiet = 0.6;

} // namespace

void NodeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString kind = index.data(SceneTreeModel::KindRole).toString();
    if (kind.isEmpty())
        return;
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
    room.setLeft(room.left() + row.fontMetrics.horizontalAdvance(row.text) + gap);
    if (room.width() < leastKind)
        return;
    const bool isSelected = row.state & QStyle::State_Selected;
    const auto group = row.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    QColor colour = row.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    colour.setAlphaF(quiet);
    painter->save();
    painter->setPen(colour);
    painter->setFont(option.font);
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                      option.fontMetrics.elidedText(kind, Qt::ElideRight, room.width()));
    painter->restore();
}

} // namespace kthost
