// 28 Maximum, 29 Minimum: the largest or smallest value of each channel, alpha included, in a window round the pixel.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// The widest window of these two; larger radii are taken as this one.
constexpr int kMostExtremeRadius = 100;

/// `square` 0: the disc of every pixel with dx² + dy² <= radius²; otherwise the square of side 2 · radius + 1. Exact.
/// `radius` in image pixels, 0 or less changes nothing. Beyond the edge lies the edge pixel. The square costs the same
/// at every radius up to the logarithm of its side, the disc at most one vector operation for each of its rows.
void Maximum(const ImageView& source, const MutableImageView& target, int square, int radius, const Run& run);
void Minimum(const ImageView& source, const MutableImageView& target, int square, int radius, const Run& run);

}  // namespace kelu::engine
