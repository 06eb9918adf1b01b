// 47 Wind: bright places are blown into streaks.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Every pixel is carried on along the vector (`x`, `y`), in image pixels, -100 to 100, as far as it stays brighter
/// than what it comes over: its luma is lost slowly and then faster, all of it after 0.6 to 2.5 times the vector's
/// length, which wavers from line to line and along them. (0, 0) changes nothing. The cost does not depend on the
/// vector's length.
void Wind(const ImageView& source, const MutableImageView& target, int x, int y, const Run& run);

}  // namespace kelu::engine
