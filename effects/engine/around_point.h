// The effects around a point: 12 Brightness 2, 14 Color Gradient, 37 Saturation 2. The point is in image pixels and may
// lie outside the picture. Alpha stays as it is. Source and target have the same size and do not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include "effects/engine/distance_weight.h"
#include "effects/engine/image_view.h"
#include "effects/engine/run.h"

namespace kelu::engine {

/// Brightens (`amount` up to 100) or darkens (down to -100, a spotlight) more and more away from the point, which
/// itself stays.
void Brightness2(const ImageView& source, const MutableImageView& target, Point at, int amount, const Run& run);

}  // namespace kelu::engine
