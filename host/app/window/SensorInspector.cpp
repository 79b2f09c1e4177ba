#include "host/app/window/SensorInspector.h"

#include "host/app/FrameLoop.h"

#include <kt/NodeUtils.h>

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace kthost
{
namespace
{

constexpr int millisecondsBetweenReads = 100;

const char* const headers[] = {"Animation", "State", "Fraction", "Time", "Start", "Cycle", "Loop"};

QString stateOf(const osg::TimeSensor& sensor)
{
    if (!sensor.isEnabled())
        return SensorInspector::tr("disabled");
    if (sensor.isStopped())
        return SensorInspector::tr("reset");
    return sensor.isActive() ? SensorInspector::tr("running") : SensorInspector::tr("halted");
}

QVariant fieldOf(const SceneSensor& entry, int column)
{
    const osg::TimeSensor& sensor = *entry.sensor;
    switch (column) {
    case SensorTableModel::NameColumn:
        return QString::fromUtf8(NodeUtils::getName(entry.node));
    case SensorTableModel::StateColumn:
        return stateOf(sensor);
    case SensorTableModel::FractionColumn:
        return QString::number(static_cast<double>(sensor.getFraction()), 'f', 3);
    case SensorTableModel::TimeColumn:
        return QString::number(sensor.getTime(), 'f', 2);
    case SensorTableModel::StartColumn:
        return QString::number(sensor.getStartTime(), 'f', 2);
    case SensorTableModel::CycleColumn:
        return QString::number(sensor.getCycleInterval(), 'g', 6);
    case SensorTableModel::LoopColumn:
        return sensor.isLooping() ? SensorInspector::tr("yes") : SensorInspector::tr("no");
    default:
        return {};
    }
}

/// Numbers stand below each other.
int alignmentOf(int column)
{
    const bool isNumber =
        column >= SensorTableModel::FractionColumn && column <= SensorTableModel::CycleColumn;
    if (column == SensorTableModel::LoopColumn)
        return Qt::AlignCenter; // apart from the number before it
    return static_cast<int>((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// Shows the fraction as a bar behind its number.
class FractionDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QColor colour = option.palette.color(QPalette::Highlight);
        colour.setAlphaF(0.35);
        const double fraction = qBound(0.0, index.data(Qt::UserRole).toDouble(), 1.0);
        QRectF bar = QRectF(option.rect).adjusted(1.0, 2.0, -1.0, -2.0);
        bar.setWidth(bar.width() * fraction);
        QStyledItemDelegate::paint(painter, option, index);
        painter->fillRect(bar, colour);
    }
};

} // namespace

SensorTableModel::SensorTableModel(FrameLoop& frames, QObject* parent)
    : QAbstractTableModel(parent), _frames(frames)
{
}

void SensorTableModel::refresh()
{
    const int rows = static_cast<int>(_frames.sensors().size());
    if (rows != _rows) {
        beginResetModel();
        _rows = rows;
        endResetModel();
    } else if (rows > 0) {
        emit dataChanged(index(0, 0), index(rows - 1, ColumnCount - 1));
    }
}

int SensorTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : _rows;
}

int SensorTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SensorTableModel::data(const QModelIndex& index, int role) const
{
    const auto& sensors = _frames.sensors();
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= sensors.size())
        return {};
    if (role == Qt::DisplayRole)
        return fieldOf(sensors[row], index.column());
    if (role == Qt::UserRole && index.column() == FractionColumn)
        return static_cast<double>(sensors[row].sensor->getFraction());
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(index.column());
    return {};
}

QVariant SensorTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= ColumnCount)
        return {};
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    return role == Qt::DisplayRole ? QVariant(tr(headers[section])) : QVariant();
}

SensorInspector::SensorInspector(FrameLoop& frames, QWidget* parent) : QTableView(parent), _model(frames)
{
    setModel(&_model);
    setItemDelegateForColumn(SensorTableModel::FractionColumn, new FractionDelegate(this));
    setAccessibleName(tr("Fields of the scene's time sensors"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setFrameShape(QFrame::NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    // In characters; widths that followed the contents would twitch with every frame.
    const int widths[] = {24, 11, 11, 12, 12, 10, 8};
    for (int column = 0; column < SensorTableModel::ColumnCount; ++column)
        setColumnWidth(column, widths[column] * fontMetrics().averageCharWidth());
    horizontalHeader()->setSectionResizeMode(SensorTableModel::FractionColumn, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    _timer.setInterval(millisecondsBetweenReads);
    connect(&_timer, &QTimer::timeout, &_model, &SensorTableModel::refresh);
}

void SensorInspector::showEvent(QShowEvent* event)
{
    _model.refresh();
    _timer.start();
    QTableView::showEvent(event);
}

void SensorInspector::hideEvent(QHideEvent* event)
{
    _timer.stop();
    QTableView::hideEvent(event);
}

} // namespace kthost
