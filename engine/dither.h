// Effect 4, B&W Dithered.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Black and white by Floyd-Steinberg error diffusion of luma. `hardness` 0 hands on the full error, 100 none of it,
/// which is a plain threshold at 128. Alpha stays. Source and target have the same size and do not overlap.
void BlackWhiteDither(const ImageView& source, const MutableImageView& target, int hardness, const Run& run);

}  // namespace kelu::engine
