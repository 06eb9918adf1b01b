// 7 Blobs: the picture redrawn in round, softly shaded drops.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Discs of `radius` (1 to 100) whose centres lie on a jittered grid of `spacing` (2 to 100, never finer than half
/// the radius), in image pixels. They lie over one another in random order, each in the mean colour beneath it and lit
/// from the upper left, with smooth edges. Between them the picture shows. Alpha belongs to a drop as its colour does.
void Blobs(const ImageView& source, const MutableImageView& target, int radius, int spacing, const Run& run);

}  // namespace kelu::engine
