// 31 Mosaic: blocks from the top left corner, each filled with its mean; blocks cut by the right or bottom edge with
// the mean of what is left of them.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// `blockWidth`, `blockHeight` in image pixels, at least 1 (less is taken as 1). Exact: (2 · sum + n) / 2n of each of
/// the four channels, rounded down.
void Mosaic(const ImageView& source, const MutableImageView& target, int blockWidth, int blockHeight, const Run& run);

}  // namespace kelu::engine
