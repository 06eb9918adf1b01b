// Textures that repeat: a pencil's strokes on paper, and crystals of ice. They hold for all pictures and are made anew
// for each.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/bands.h"
#include "engine/working_size.h"

namespace kelu::engine {

/// Side of the textures; each repeats after that many pixels.
constexpr int kTextureSide = 512;

/// Red, green: what shade of a place calls for a stroke there, of either direction, as 255 · (0.25 + 0.625 shade).
/// Blue: the grain of the paper. One pass.
WorkPicture PencilTexture(Passes& passes);

/// Red: the cracks between crystals, 255 in the middle of one. Green: how bright a crystal's face is, 128 in the
/// middle. Blue: how white it is. One pass.
WorkPicture IceTexture(Passes& passes);

}  // namespace kelu::engine
