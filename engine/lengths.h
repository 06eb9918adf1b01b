// How long the lengths are of the effects that have no input for them.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::engine {

/// What lengths given in "base pixels" are multiplied by: 1 for photographs of up to 1.5 megapixels, for larger ones
/// so that a length stays the same part of the picture. Thumbnails, below a tenth of a megapixel, take shorter ones.
inline float LengthScale(const ImageView& source, const Run& run) {
    constexpr double kFrom = 0.1e6, kTo = 1.5e6;  // pixels
    if (run.lengthScale > 0) return run.lengthScale;
    const double pixels = static_cast<double>(source.width) * source.height;
    return static_cast<float>(std::clamp(pixels < kFrom ? std::sqrt(pixels / kFrom) : std::sqrt(pixels / kTo),
                                         pixels < kFrom ? 0.25 : 1.0, 16.0));
}

/// The distance in pixels of the neighbours that a 3x3 kernel looks at, 1 to kMostStep.
constexpr int kMostStep = 16;
inline int NeighbourStep(const ImageView& source, const Run& run) {
    return std::max(1, static_cast<int>(std::lround(LengthScale(source, run))));
}

/// What is soft is computed on a picture smaller by this factor, a power of two from 1 to 16 that leaves a base pixel
/// one to two pixels wide.
inline int WorkingFactor(float scale) {
    return static_cast<int>(std::bit_floor(static_cast<unsigned>(std::clamp(scale, 1.0f, 16.0f))));
}

/// The same for what is softer than a base pixel anyhow: above 1, a base pixel is half to one pixel wide.
inline int CoarseFactor(float scale) {
    const int factor = WorkingFactor(scale);
    return factor > 1 ? std::min(2 * factor, 16) : 1;
}

}  // namespace kelu::engine
