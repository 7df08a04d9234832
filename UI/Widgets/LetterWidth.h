// How wide a usual letter is, for columns that hold so many of them.
//
// Not the average that a font tells of itself: in a font for Chinese or Japanese that is a whole
// square, twice the width of its Latin letters.
#pragma once
#include <QFontMetrics>
#include <algorithm>

inline int letterWidth(const QFontMetrics& metrics)
{
    return std::min(metrics.averageCharWidth(), metrics.horizontalAdvance(QLatin1Char('x')));
}
