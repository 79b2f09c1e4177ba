#pragma once

#include <QLocale>
#include <QString>

#include <optional>

/// How a number field writes and reads its number.
namespace NumberText
{

/// The decimals that a multiple of `step` needs, 0 to 15. Single-precision steps count as the short number
/// they stand for.
int decimalsOf(double step);

/// The value for reading: the decimals of the step at least; where it has more, as many of them as make six
/// digits that count.
QString format(double value, double step, const QLocale& locale);

/// The finite number that the text is, in the locale or as programs write it.
std::optional<double> parse(const QString& text, const QLocale& locale);

/// True where going on to type could still make a number of it.
bool canBecomeNumber(const QString& text, const QLocale& locale);

} // namespace NumberText
