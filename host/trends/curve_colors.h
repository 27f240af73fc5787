#pragma once

#include <QColor>
#include <QPalette>

#include <cstddef>

namespace krt550 {

/// Colour of a curve, by its place (below kMostTrendSignals), that stands out from the palette's base, light or dark.
inline QColor CurveColor(const QPalette& palette, std::size_t place) {
    static constexpr QRgb kOnLight[] = {0x1f5fa8, 0xb3402a, 0x2c7a4b, 0x6b4fa0, 0x8a6100, 0x007380, 0xa8327d, 0x555555};
    static constexpr QRgb kOnDark[] = {0x6cb2ff, 0xff8c6e, 0x70d094, 0xbda4f5, 0xe2bb4e, 0x4dd2de, 0xf28ccb, 0xc0c0c0};
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    const auto& colors = isDark ? kOnDark : kOnLight;
    return QColor::fromRgb(colors[place % std::size(colors)]);
}

/// Between two colours; `share` of the second, 0 to 1.
inline QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](int a, int b) { return int(a + (b - a) * share); };
    return {mix(first.red(), second.red()), mix(first.green(), second.green()), mix(first.blue(), second.blue())};
}

} // namespace krt550
