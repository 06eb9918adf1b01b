// 22 Explode, 26 Implode, 24 Fish Eye: each pixel is fetched from another distance along the same ray from a centre.
// Alpha moves with the pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// A bulge outward from `center`, fourfold at most, that dies out within half the picture's diagonal. `strength` 0
/// (unchanged) to 100.
void Explode(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run);

/// A pinch towards `center`, likewise, and less near the picture's edges. Its middle fades to `outside`, wholly at 100.
void Implode(const ImageView& source, const MutableImageView& target, Point center, int strength, Color outside,
             const Run& run);

/// The whole picture on half a ball, an ellipse that touches its four sides; the rest is `outside`.
void FishEye(const ImageView& source, const MutableImageView& target, Color outside, const Run& run);

}  // namespace kelu::engine
