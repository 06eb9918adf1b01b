// The Gaussian blur that Blur 1, Sketch and Neon stand on, at a cost that does not grow with its width.
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/bands.h"
#include "engine/image_view.h"

namespace kelu::engine {

/// Passes that GaussianBlur will run, for the one who makes `Passes`.
int GaussianPasses(double sigma);

/// Every channel of `target`, alpha included, becomes the Gaussian mean of `source`; beyond the edge lies the edge
/// pixel. `sigma` is in image pixels, 0.3 to 200. Within 2 levels of the true Gaussian (truncated nowhere); after that
/// it is doubled `doublings` times, which is finer than doubling the result, and cut off at 255.
void GaussianBlur(const ImageView& source, const MutableImageView& target, double sigma, Passes& passes,
                  int doublings = 0);

}  // namespace kelu::engine
