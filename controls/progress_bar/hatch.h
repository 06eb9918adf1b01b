// Hatching on whole pixels, which the toolkit's own hatch brushes give up at device pixel ratios other than 1.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRect>

namespace kelu::bar {

/// Hatches `rect` (widget pixels) over what is there: 0 horizontal, 1 vertical, 2 falling, 3 rising, 4 cross,
/// 5 diagonal cross. The pattern repeats every 8 pixels and hangs on (0, 0). Nothing for another style.
void FillHatched(QPainter& painter, const QRect& rect, int style, const QColor& color);

}  // namespace kelu::bar
