// 22 Explode, 26 Implode, 24 Fish Eye: each pixel is fetched from another distance along the same ray from a centre.
// Alpha moves with the pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// A bulge outward from `center`. `strength` 0 (unchanged) to 100.
void Explode(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run);

/// A pinch towards `center`. `strength` 0 (unchanged) to 100. What would come from outside the picture is `outside`.
void Implode(const ImageView& source, const MutableImageView& target, Point center, int strength, Color outside,
             const Run& run);

/// The picture in a circle that touches the shorter side; the rest is `outside`.
void FishEye(const ImageView& source, const MutableImageView& target, Color outside, const Run& run);

}  // namespace kelu::engine
