// The brush: a round tip whose paint is a picture, and the pixels that a stroke of it covers.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

#include "engine/stroke_span.h"

namespace kelu {

/// A brush made by Surface::MakeBrush: keeps its paint alive, costs no copy. Later changes of the surface that it was
/// made from don't reach it.
struct BrushHandle {
    QImage paint;      ///< source of the strokes, at the same coordinates as the canvas; null: no brush
    int size = 0;      ///< diameter in image pixels, at least 1
    int softness = 0;  ///< 0: a hard edge, to 100: fading from the middle on
};

/// A segment of a stroke: all points within `radius` of the line from (x1, y1) to (x2, y2), in image pixels, where
/// whole numbers are the middles of pixels.
class Capsule {
 public:
    /// `size` is the diameter, at least 1; `softness` 0 to 100.
    Capsule(int x1, int y1, int x2, int y2, int size, int softness = 0);

    /// How much of the `count` pixels from (x, y) on is covered, 0 to `strength`: nothing from half a pixel outside the
    /// edge; all up to half a pixel inside it, or, the softer the tip, up to a smaller core, with a smooth fall
    /// between. Behind `shares` is room for engine::kRoomForShares more.
    void Shares(int x, int y, int count, int strength, std::uint8_t* shares) const;

    /// All pixels with a coverage above 0 lie in here.
    QRect Bounds() const { return bounds_; }

    /// The pixels of one row: [outerBegin, outerEnd) holds all that are covered, [innerBegin, innerEnd) only pixels
    /// that are covered wholly; empty ranges have begin >= end.
    struct Row {
        int outerBegin, innerBegin, innerEnd, outerEnd;
    };
    Row RowSpan(int y) const;

 private:
    struct Interval {
        double begin, end;
    };
    Interval Cut(double y, double radius) const;

    engine::SegmentEdge edge_;  ///< its core is below 0 where nothing is covered wholly
    double lengthSquared_;
    QRect bounds_;
};

}  // namespace kelu
