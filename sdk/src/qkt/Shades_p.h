#pragma once

#include <QColor>
#include <QPalette>

/// Colours between two of the palette's, so that light and dark palettes both look right.
namespace Shades
{

/// `amount` of `over` laid on `base`: 0 is `base`, 1 is `over`.
inline QColor mixed(const QColor& base, const QColor& over, double amount)
{
    const auto channel = [amount](double from, double to) { return from + (to - from) * amount; };
    return QColor::fromRgbF(channel(base.redF(), over.redF()), channel(base.greenF(), over.greenF()),
                            channel(base.blueF(), over.blueF()));
}

inline bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

} // namespace Shades
