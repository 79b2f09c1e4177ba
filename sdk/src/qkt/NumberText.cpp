#include "qkt/NumberText_p.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int countingDecimals = 6;
constexpr int mostDecimals = 15;

// Beyond these a number in full is a row of zeros that nobody counts.
constexpr double longestNumber = 1e15;
constexpr double shortestNumber = 1e-9;

QLocale withoutGroups(QLocale locale)
{
    // "1.500" must not be read as 1500 where the point separates groups of digits.
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

int NumberText::decimalsOf(double step)
{
    double scale = 1.0;
    for (int decimals = 0; decimals < mostDecimals; ++decimals, scale *= 10.0) {
        const double scaled = step * scale;
        if (std::abs(scaled - std::round(scaled)) <= scaled * 1e-6)
            return decimals;
    }
    return step < shortestNumber ? mostDecimals : countingDecimals;
}

QString NumberText::format(double value, double step, const QLocale& locale)
{
    const QLocale plain = withoutGroups(locale);
    const int least = decimalsOf(step);
    if (value == 0.0)
        return plain.toString(0.0, 'f', least); // never "-0"
    const double magnitude = std::abs(value);
    if (magnitude >= longestNumber)
        return plain.toString(value, 'g', QLocale::FloatingPointShortest);
    if (magnitude < shortestNumber)
        return plain.toString(value, 'g', countingDecimals);

    const int leadingZeros = std::max(0, static_cast<int>(std::floor(-std::log10(magnitude))));
    int decimals = std::max(least, countingDecimals + leadingZeros);
    const QString digits = QString::number(value, 'f', decimals);
    for (int last = digits.size() - 1; decimals > least && digits[last] == QLatin1Char('0'); --last)
        --decimals;
    return plain.toString(value, 'f', decimals);
}

std::optional<double> NumberText::parse(const QString& text, const QLocale& locale)
{
    const QString trimmed = text.trimmed();
    for (const QLocale& candidate : {withoutGroups(locale), withoutGroups(QLocale::c())}) {
        bool isNumber = false;
        const double number = candidate.toDouble(trimmed, &isNumber);
        if (isNumber)
            return std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
    }
    return std::nullopt;
}

bool NumberText::canBecomeNumber(const QString& text, const QLocale& locale)
{
    return parse(text, locale) || parse(text.trimmed() + QLatin1Char('1'), locale);
}
