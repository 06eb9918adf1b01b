// The strokes a progress bar is drawn with: mixed colours, lines, gradients and boxes, all on whole pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>

#include "controls/progress_bar/bar_geometry.h"
#include "controls/system_look/system_colors.h"

namespace kelu::bar {

/// Towards white by `amount`, 0 to 255: each channel becomes amount + channel x (255 - amount) / 255, at most 255.
ColorRef Lighten(ColorRef color, int amount);

/// From `first` (`amount` 0) to `second` (255).
ColorRef Blend(ColorRef first, ColorRef second, int amount);

/// One pixel wide; the last pixel isn't drawn.
void DrawLine(QPainter& painter, int x1, int y1, int x2, int y2, ColorRef color);

/// Which way the lines of a gradient run.
enum class GradientLines { kHorizontal, kVertical };

/// A blend from `first` to `second` in n + 1 lines. Vertical lines: n is `w`, the lines stand at x to x + n and run
/// from y to the row `h`. Horizontal lines: n is `h`, they lie at y to y + n and run from x to the column `w`. Nothing
/// when n isn't above 0.
void DrawGradient(QPainter& painter, ColorRef first, ColorRef second, int x, int y, int w, int h, GradientLines lines);

void FillBox(QPainter& painter, const Box& box, ColorRef color);
void FrameBox(QPainter& painter, const Box& box, ColorRef color);

}  // namespace kelu::bar
