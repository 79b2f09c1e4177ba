#pragma once

#include <QString>

class QKTWheelPrec;
class QWidget;

/// What assistive tools are told of the number field: a spin box with a value, bounds and a step.
namespace WheelPrecAccessible
{

/// Makes the number fields known to Qt's accessibility; further calls do nothing.
void install();

/// The field's name by its accessibleName, its buddy label or the label before it in its grid row; else
/// empty.
QString nameOf(const QWidget* field);

void tellValue(QKTWheelPrec* field);

} // namespace WheelPrecAccessible
