// 47 Wind: bright places are blown into streaks.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Every pixel hands its four channels on along the vector (`x`, `y`), in image pixels, -100 to 100, fading slowly and
/// then faster: a full channel is gone at the vector's end, or earlier, for the streaks' lengths vary from 35 to 100
/// percent. The brighter of streak and picture stays, channel by channel. (0, 0) changes nothing. The cost does not
/// depend on the vector's length.
void Wind(const ImageView& source, const MutableImageView& target, int x, int y, const Run& run);

}  // namespace kelu::engine
