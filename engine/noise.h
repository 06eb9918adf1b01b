// Effect 5, Noise.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Adds Gaussian noise of standard deviation 0.6 · `strength` levels (strength 0 to 100, 0 is neutral): with `colored`
/// each channel its own, else the same for all three. Alpha stays. Source and target have the same size and do not
/// overlap.
void Noise(const ImageView& source, const MutableImageView& target, int strength, bool colored, const Run& run);

}  // namespace kelu::engine
