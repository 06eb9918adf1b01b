// Raised and sunken edges, two pixels of light and shade, as the controls draw them round rails and bars.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRect>

namespace kelu {

/// Parts of an edge; an edge is an outer line, an inner line, or one of each.
enum EdgePart : unsigned {
    kNoEdge = 0,
    kRaisedOuter = 1,
    kSunkenOuter = 2,
    kRaisedInner = 4,
    kSunkenInner = 8,
    kEdgeRaised = kRaisedOuter | kRaisedInner,
    kEdgeEtched = kSunkenOuter | kRaisedInner,
    kEdgeBump = kRaisedOuter | kSunkenInner,
    kEdgeSunken = kSunkenOuter | kSunkenInner,
};

/// Draws all four sides along the inside of `rect` (widget pixels), each line one pixel thick, in the current system
/// colours. The inside stays as it is.
void DrawEdge(QPainter& painter, const QRect& rect, unsigned edge);

/// One-pixel frame along the inside of `rect`.
void DrawFrame(QPainter& painter, const QRect& rect, const QColor& color);

}  // namespace kelu
