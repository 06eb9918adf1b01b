// 8 Blur 1, 9 Blur 2, 10 Blur 3: means round the pixel, along the line to a point, and along the arc around it. All
// four channels are averaged alike.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Gaussian of standard deviation strength / 2 image pixels. `strength` 0 (unchanged) to 100. Within 2 levels of the
/// true Gaussian; the cost does not depend on the strength.
void Blur1(const ImageView& source, const MutableImageView& target, int strength, const Run& run);

/// Zoom blur: the mean along the line through the pixel and `center`, from strength / 2 percent of the distance nearer
/// to as much farther, evenly in the logarithm of the distance. `strength` 0 (unchanged) to 100.
void Blur2(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run);

/// Spin blur: the mean along the arc round `center`, strength · 0.18 degrees to either side. `strength` 0 (unchanged)
/// to 100.
void Blur3(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run);

}  // namespace kelu::engine
