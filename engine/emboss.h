// The reliefs: 16 Color Emboss and 20 Emboss. Alpha stays as it is. Source and target have the same size and do not
// overlap. `direction` counts clockwise from 0, north (direction.h).
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// A relief in the picture's own colours.
void ColorEmboss(const ImageView& source, const MutableImageView& target, int direction, const Run& run);

/// A grey relief on the level `offset` (0 to 255); `strength` multiplies the differences of luma (1 to 10).
void Emboss(const ImageView& source, const MutableImageView& target, int direction, int strength, int offset,
            const Run& run);

}  // namespace kelu::engine
