// The effects around a point: 12 Brightness 2, 14 Color Gradient, 37 Saturation 2. The point is in image pixels and may
// lie outside the picture. Alpha stays as it is. Source and target have the same size and do not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Brightens (`amount` up to 100) or darkens (down to -100, a spotlight) more and more away from the point, which
/// itself stays.
void Brightness2(const ImageView& source, const MutableImageView& target, Point at, int amount, const Run& run);

/// Lays a full turn of hues over the picture, red eastward of the point, clockwise for a positive and anticlockwise for
/// a negative `strength` (-100 to 100, 0 is neutral). Luma stays.
void ColorGradient(const ImageView& source, const MutableImageView& target, Point at, int strength, const Run& run);

/// Saturation 1 growing with the distance from the point: `amount` -100 grey, 0 neutral, 100 double at the farthest
/// corner.
void Saturation2(const ImageView& source, const MutableImageView& target, Point at, int amount, const Run& run);

}  // namespace kelu::engine
