// 41 Sketch: a pencil drawing.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Grey; even areas go white, edges dark. Alpha stays as it is.
void Sketch(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
