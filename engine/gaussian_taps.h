// The weights of a narrow Gaussian in fixed point.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kelu::engine {

/// Pixels to one side; three standard deviations of the widest filter that GaussianBlur runs.
constexpr int kMostTaps = 8;

struct GaussianTaps {
    explicit GaussianTaps(double sigma);

    int radius;                           // pixels
    std::uint16_t weight[kMostTaps + 1];  // of the middle and of either neighbour at 1, 2...; their sum is 65536
    std::uint16_t rounding;               // units of 1/128 level
};

}  // namespace kelu::engine
