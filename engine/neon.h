// 48 Neon: tubes of light along the edges, in the hues of the picture, with their glow in the dark.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Lengths grow with the picture (lengths.h). Alpha stays as it is.
void Neon(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
