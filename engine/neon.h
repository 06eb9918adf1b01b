// 48 Neon: bright coloured outlines with a soft glow on black.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Alpha stays as it is.
void Neon(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
