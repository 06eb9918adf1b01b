// The thumb that a slider has when no picture was given to it: a raised square with a grip, drawn for either direction.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QSize>

namespace kelu::slider {

/// In widget pixels.
inline constexpr QSize kDefaultThumbSize{16, 16};

/// Draws the thumb with its top left corner at `place`; every line lies on the widget's pixel grid when `place` does.
void PaintDefaultThumb(QPainter& painter, QPointF place);

}  // namespace kelu::slider
