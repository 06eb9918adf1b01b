// A stroke row by row: how much of each pixel a segment of it covers, and the pixels blended by that.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kelu::engine {

/// What lies near a segment; whole numbers are the middles of pixels.
struct SegmentEdge {
    double x, y;    ///< where the segment begins
    double dx, dy;  ///< from there to its end
    double outer;   ///< nothing is covered from this distance on
    double core;  ///< all is covered up to this one; a pixel inside `outer` for a hard edge, else further, and the fall
                  ///< between them is smooth
};

/// So many bytes behind the last share may be written, too.
inline constexpr int kRoomForShares = 8;

/// How much of the `count` pixels from (x, y) on is covered, 0 to `strength`, which is 255 at most.
void SegmentShares(const SegmentEdge& edge, int strength, int x, int y, int count, std::uint8_t* shares);

/// A part of a row that the stroke covers; all arrays have `count` elements.
struct StrokeSpan {
    const std::uint8_t* shares;   ///< by the present segment, of 255
    std::uint8_t* covered;        ///< by the stroke so far; becomes the larger of both
    const std::uint32_t* before;  ///< the pixels as they were before the stroke
    const std::uint32_t* paint;
    std::uint32_t* target;
    int count;
};

/// Where the segment covers more than the stroke so far, the target becomes the pixel before the stroke blended with
/// the paint by that share. Colours count by their alpha. `laysOver`: `before` is opaque and stays so, and what is
/// transparent in the paint changes nothing.
void BlendStroke(const StrokeSpan& span, bool laysOver);

}  // namespace kelu::engine
