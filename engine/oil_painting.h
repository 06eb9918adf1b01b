// 33 Oil Painting: each pixel takes the mean colour of the commonest brightness around it.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// The widest brush; a larger one is taken as this one.
constexpr int kMostOilRadius = 100;

/// In the square of side 2 · radius + 1 luma is counted in 32 bands of equal width, the middle by more than the edges;
/// the pixel takes the mean colour of the heaviest one, of the darker of two equally heavy. `radius` in image pixels, 0
/// or less changes nothing. Beyond the edge lies the edge pixel. Alpha stays as it is. The cost per pixel does not
/// depend on the radius.
void OilPainting(const ImageView& source, const MutableImageView& target, int radius, const Run& run);

}  // namespace kelu::engine
