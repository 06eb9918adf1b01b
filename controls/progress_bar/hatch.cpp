// Hatching.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/hatch.h"

namespace kelu::bar {
namespace {

constexpr int kPeriod = 8;

bool OnLine(int style, int x, int y) {
    const bool falling = x % kPeriod == y % kPeriod;
    const bool rising = (x + y) % kPeriod == kPeriod - 1;
    const bool horizontal = y % kPeriod == kPeriod / 2;
    const bool vertical = x % kPeriod == kPeriod / 2;
    switch (style) {
        case 0:
            return horizontal;
        case 1:
            return vertical;
        case 2:
            return falling;
        case 3:
            return rising;
        case 4:
            return horizontal || vertical;
        case 5:
            return falling || rising;
        default:
            return false;
    }
}

}  // namespace

void FillHatched(QPainter& painter, const QRect& rect, int style, const QColor& color) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (OnLine(style, x, y)) painter.fillRect(QRect(x, y, 1, 1), color);
        }
    }
}

}  // namespace kelu::bar
