// Strokes from a file, painted as the mouse would: {"strokes": [{"size": 50, "points": [[x, y], ...]}]}.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPoint>
#include <vector>

namespace kelu {
class Surface;
}

namespace kelu::cli {

struct Stroke {
    int size = 0;                ///< diameter in image pixels, 1 to 100
    std::vector<QPoint> points;  ///< image pixels; may lie outside the picture
};

/// Throws Error with a description of the first fault.
std::vector<Stroke> ReadStrokes(const QByteArray& json);

/// Paints the pen's picture along each stroke onto the canvas: a press at its first point, moves to the others. A
/// stroke of one point paints that point.
void PaintStrokes(const std::vector<Stroke>& strokes, const Surface& pen, Surface& canvas);

}  // namespace kelu::cli
