// 30 Melt: the picture runs downward like wax.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Alpha moves with the pixels.
void Melt(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
