// The plain copy: what every effect does when its inputs mean "nothing".
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Source and target have the same size and do not overlap.
void Copy(const ImageView& source, const MutableImageView& target, const Run& run);

}  // namespace kelu::engine
