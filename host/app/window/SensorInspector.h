#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <QTimer>

namespace kthost
{

class FrameLoop;

/// The fields of the scene's time sensors, a row a sensor, as they are now.
class SensorTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        NameColumn,
        StateColumn,
        FractionColumn,
        TimeColumn,
        StartColumn,
        CycleColumn,
        LoopColumn,
        ColumnCount
    };

    explicit SensorTableModel(FrameLoop& frames, QObject* parent = nullptr);

    /// Reads the sensors again.
    void refresh();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    FrameLoop& _frames;
    int _rows = 0;
};

/// Shows the sensors' fields while they change; does nothing while it is hidden.
class SensorInspector : public QTableView
{
    Q_OBJECT

public:
    /// `frames` must outlive the inspector.
    explicit SensorInspector(FrameLoop& frames, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    SensorTableModel _model;
    QTimer _timer;
};

} // namespace kthost
