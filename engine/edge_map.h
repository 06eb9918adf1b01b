// Where a picture has edges: the map that Neon and Freeze draw along.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/bands.h"
#include "engine/working_size.h"

namespace kelu::engine {

/// Passes that MapEdges will run, for the one who makes `Passes`.
int MapEdgesPasses(float basePixel);

/// The picture blurred by 1.6 base pixels, and in the alpha of `edges` nine times its slope in levels a base pixel (the
/// root mean square of the three channels', by Sobel's kernels), at most 255. `soft` is used on the way. `basePixel` is
/// the length of a base pixel in pixels of `source`; all have one size.
void MapEdges(const ImageView& source, float basePixel, const WorkPicture& soft, const WorkPicture& edges,
              Passes& passes);

}  // namespace kelu::engine
