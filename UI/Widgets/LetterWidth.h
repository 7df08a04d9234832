// SPDX-License-Identifier: MIT
// The width of a usual letter, for columns that hold a number of them.
//
// Not the font's average width: in a font for Chinese or Japanese that is a full square, twice the
// width of its Latin letters.
#pragma once
#include <QFontMetrics>
#include <algorithm>

inline int letterWidth(const QFontMetrics& metrics)
{
    return std::min(metrics.averageCharWidth(), metrics.horizontalAdvance(QLatin1Char('x')));
}
