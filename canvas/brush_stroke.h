// Lays one segment of a stroke on a picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

#include "canvas/brush.h"
#include "canvas/undo_levels.h"

namespace kelu {

struct Segment {
    QPoint from, to;   ///< image pixels
    int size = 1;      ///< of the brush, a diameter
    int softness = 0;  ///< 0 to 100
};

/// Paints the segment inside the common area of `canvas` and `paint` and returns the rectangle that may have changed.
/// The pixels before the stroke come from the open level of `undo`, so that segments of one stroke never build up
/// where they meet: the pixel is always the one before the stroke blended once, by the largest coverage so far.
/// `canvas` must be the only owner of its memory and a level must be open. `strength` is 0 to 255.
QRect PaintSegment(QImage& canvas, const QImage& paint, const Segment& segment, int strength, UndoLevels& undo);

}  // namespace kelu
