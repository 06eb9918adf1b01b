// Effects that put whole pixels elsewhere: 35 Reverse, 38 Scramble, 44 Tile, 42 Spray. Alpha moves with the pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Mirrored left to right. Exact.
void Reverse(const ImageView& source, const MutableImageView& target, const Run& run);

/// Cut into squares of `side` image pixels from the top left corner; `percent` (0 to 100) of the whole ones exchange
/// places in pairs. Squares cut by the right or bottom edge stay. 0 or less for either changes nothing. Exact.
void Scramble(const ImageView& source, const MutableImageView& target, int side, int percent, const Run& run);

/// Cut into squares of `side` image pixels (at least 1), each moved by up to `percent` (0 to 100) of its side in both
/// directions; later ones (to the right, then below) lie over earlier ones, and in the gaps the picture shows at a
/// quarter of its brightness.
void Tile(const ImageView& source, const MutableImageView& target, int side, int percent, const Run& run);

/// Each pixel is a random one of the disc dx² + dy² <= radius² round it; beyond the edge lies the edge pixel. `radius`
/// in image pixels, 0 (unchanged) to 100.
void Spray(const ImageView& source, const MutableImageView& target, int radius, const Run& run);

}  // namespace kelu::engine
