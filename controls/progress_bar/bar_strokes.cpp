// Strokes of the progress bar. Filled rectangles throughout: a pen would blur at fractional device pixel ratios.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_strokes.h"

#include <algorithm>
#include <cstdlib>

#include "controls/system_look/draw_edge.h"
#include "platform/units.h"

namespace kelu::bar {
namespace {

constexpr int kShifts[] = {0, 8, 16};

int Channel(ColorRef color, int shift) { return static_cast<int>(color >> shift & 0xFFU); }

template <typename Rule>
ColorRef EachChannel(Rule&& rule) {
    ColorRef result = 0;
    for (const int shift : kShifts) result |= static_cast<ColorRef>(std::clamp(rule(shift), 0, 255)) << shift;
    return result;
}

}  // namespace

ColorRef Lighten(ColorRef color, int amount) {
    return EachChannel([&](int shift) { return amount + Channel(color, shift) * (255 - amount) / 255; });
}

ColorRef Blend(ColorRef first, ColorRef second, int amount) {
    return EachChannel(
        [&](int shift) { return ((255 - amount) * Channel(first, shift) + amount * Channel(second, shift)) / 255; });
}

void DrawLine(QPainter& painter, int x1, int y1, int x2, int y2, ColorRef color) {
    const QColor ink = TranslateColor(color);
    const int length = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
    if (y1 == y2) {
        painter.fillRect(QRect(x1 <= x2 ? x1 : x2 + 1, y1, length, 1), ink);
    } else if (x1 == x2) {
        painter.fillRect(QRect(x1, y1 <= y2 ? y1 : y2 + 1, 1, length), ink);
    } else {
        for (int step = 0; step < length; ++step) {
            const double part = static_cast<double>(step) / length;
            painter.fillRect(QRect(RoundToEven(x1 + (x2 - x1) * part), RoundToEven(y1 + (y2 - y1) * part), 1, 1), ink);
        }
    }
}

void DrawGradient(QPainter& painter, ColorRef first, ColorRef second, int x, int y, int w, int h, GradientLines lines) {
    const bool vertical = lines == GradientLines::kVertical;
    const int n = vertical ? w : h;
    if (n <= 0) return;
    for (int i = 0; i <= n; ++i) {
        const ColorRef color = EachChannel([&](int shift) {
            const double step = static_cast<double>(Channel(second, shift) - Channel(first, shift)) / n;
            return RoundToEven(Channel(first, shift) + step * i);
        });
        if (vertical) {
            DrawLine(painter, x + i, y, x + i, h, color);
        } else {
            DrawLine(painter, x, y + i, w, y + i, color);
        }
    }
}

void FillBox(QPainter& painter, const Box& box, ColorRef color) {
    if (box.Width() > 0 && box.Height() > 0) painter.fillRect(box.ToRect(), TranslateColor(color));
}

void FrameBox(QPainter& painter, const Box& box, ColorRef color) {
    DrawFrame(painter, box.ToRect(), TranslateColor(color));
}

}  // namespace kelu::bar
