// Blur by strength.
// SPDX-License-Identifier: MIT
#include "effects/engine/blurs.h"

#include <algorithm>

#include "effects/engine/bands.h"
#include "effects/engine/copy.h"
#include "effects/engine/gaussian.h"

namespace kelu::engine {

void Blur1(const ImageView& source, const MutableImageView& target, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    const double sigma = std::min(strength, 100) / 2.0;
    Passes passes(run, GaussianPasses(sigma));
    GaussianBlur(source, target, sigma, passes);
}

}  // namespace kelu::engine
