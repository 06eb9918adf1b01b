// 8 Blur 1, 9 Blur 2, 10 Blur 3: means round the pixel, along the line to a point, and along the arc around it. All
// four channels are averaged alike. SPDX-License-Identifier: MIT
#pragma once

#include "effects/engine/distance_weight.h"
#include "effects/engine/image_view.h"
#include "effects/engine/run.h"

namespace kelu::engine {

/// Gaussian of standard deviation strength / 2 image pixels. `strength` 0 (unchanged) to 100. Within 2 levels of the
/// true Gaussian; the cost does not depend on the strength.
void Blur1(const ImageView& source, const MutableImageView& target, int strength, const Run& run);

}  // namespace kelu::engine
