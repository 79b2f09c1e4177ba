#include <qkt/QKTWheelPrec.h>

#include <QDoubleSpinBox>
#include <QHBoxLayout>

#include <algorithm>
#include <cmath>
#include <limits>

QKTWheelPrec::QKTWheelPrec(QWidget* parent)
    : QWidget(parent),
      _field(new QDoubleSpinBox(this)),
      _minimum(std::numeric_limits<double>::lowest()),
      _maximum(std::numeric_limits<double>::max())
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_field);
    setFocusProxy(_field);
    _field->setDecimals(3);
    _field->setRange(_minimum, _maximum);
    connect(_field, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &QKTWheelPrec::setValue);
}

void QKTWheelPrec::setSingleStep(double step)
{
    if (!(step > 0.0))
        return;
    _singleStep = step;
    _field->setSingleStep(step);
}

void QKTWheelPrec::setMinimum(double minimum)
{
    _minimum = minimum;
    _maximum = std::max(_maximum, minimum);
    _field->setRange(_minimum, _maximum);
    setValue(_value);
}

void QKTWheelPrec::setMaximum(double maximum)
{
    _maximum = maximum;
    _minimum = std::min(_minimum, maximum);
    _field->setRange(_minimum, _maximum);
    setValue(_value);
}

void QKTWheelPrec::setValue(double value)
{
    if (std::isnan(value))
        return;
    const double held = std::clamp(value, _minimum, _maximum);
    if (held == _value)
        return;
    _value = held;
    const QSignalBlocker blocker(_field);
    _field->setValue(held);
    emit valueChanged(held);
}
