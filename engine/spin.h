// The spin blur, ring by ring. A piece of some rings is unrolled, so that arcs become lines; there the mean along a
// line is a sliding sum, whatever its length; and rolled up again. Where the arc is short, few samples are its mean.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// The mean along the arc of `reach` radians to either side, round `center`. Needs no memory that grows with the
/// picture.
void SpinBlur(const ImageView& source, const MutableImageView& target, Point center, double reach, const Run& run);

}  // namespace kelu::engine
