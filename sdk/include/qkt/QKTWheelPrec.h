#pragma once

#include <kt/Export.h>

#include <QWidget>

class QDoubleSpinBox;

/// A number field with a wheel: a precise real number within bounds.
class KT_EXPORT QKTWheelPrec : public QWidget
{
    Q_OBJECT

public:
    explicit QKTWheelPrec(QWidget* parent = nullptr);

    double value() const { return _value; }
    double singleStep() const { return _singleStep; }

    /// The lowest double by default.
    double minimum() const { return _minimum; }

    /// The highest double by default.
    double maximum() const { return _maximum; }

    /// One notch of the wheel; not above 0, or not a number, is ignored.
    void setSingleStep(double step);

    /// A bound that crosses the other one moves it along; the value follows into the bounds.
    void setMinimum(double minimum);
    void setMaximum(double maximum);

public slots:
    /// Held within the bounds; what is not a number is ignored.
    void setValue(double value);

signals:
    /// Each time the value becomes another one, by whomever.
    void valueChanged(double value);

private:
    QDoubleSpinBox* _field;
    double _value = 0.0;
    double _singleStep = 1.0;
    double _minimum;
    double _maximum;
};
