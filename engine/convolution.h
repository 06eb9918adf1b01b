// The 3x3 convolutions, 25 High Pass, 40 Special Filter, 46 Freeze, and 19 Enhance Edges. Each works on the three
// colour channels; alpha stays as it is. The neighbours stand farther away in large pictures (lengths.h). Outside the
// picture lies the nearest edge pixel. Source and target have the same size and do not overlap.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "engine/bands.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// Row by row from the upper left neighbour to the lower right one.
using Weights3x3 = std::array<float, 9>;

/// Drives apart what differs from its surroundings; flat areas stay.
void EnhanceEdges(const ImageView& source, const MutableImageView& target, const Run& run);

/// `kind` 0 strong, 1 plain, 2 soft.
void HighPass(const ImageView& source, const MutableImageView& target, int kind, const Run& run);

/// `kind` 0 to 16 is a row of the Special Filter list, `offset` (0 to 255) is added.
void SpecialFilter(const ImageView& source, const MutableImageView& target, int kind, int offset, const Run& run);

/// A free kernel's bite, the weighted sum divided by `divisor` (0 counts as 1) plus `offset`, under ice and in the
/// cold.
void Freeze(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
            int offset, const Run& run);

/// The same kernel alone, over neighbours that stand `step` pixels away. One pass; `after`, if any, goes over the rows
/// of a band of the target when they are done.
void Convolve(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
              int offset, int step, Passes& passes, const BandWork& after = {});

}  // namespace kelu::engine
