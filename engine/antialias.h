// Effect 6, Antialias: smooths stair-stepped edges.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Where luma has an edge, each pixel is blended with its neighbours along that edge; all other pixels stay byte for
/// byte, and alpha stays everywhere. Source and target have the same size and do not overlap.
void Antialias(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
