// At the bottom column x is dragged down by h/4 · (0.4 flow(x) + 0.6 drop(x)³) · (1/2 + mean luma / 510) pixels, above
// that by smoothstep(y / h) of it, so that the picture stretches where it runs. flow is a broad and drop a fine octave
// of noise; the cube makes few drops run far.
// SPDX-License-Identifier: MIT
#include "engine/melt.h"

#include <cmath>
#include <vector>

#include "engine/random.h"
#include "engine/warp.h"

namespace kelu::engine {
namespace {

constexpr int kEffect = 30;

// Mean luma of each column, 0 to 255, from at most this many rows: every column would not change what is seen.
constexpr int kRowsLookedAt = 256;

std::vector<float> ColumnLuma(const ImageView& source) {
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(source.width));
    const int rows = std::min(source.height, kRowsLookedAt);
    for (int i = 0; i < rows; ++i) {
        const std::uint32_t* const row = source.Row(static_cast<int>(std::int64_t{i} * source.height / rows));
        for (std::size_t x = 0; x < sums.size(); ++x)
            sums[x] += 299 * (row[x] >> 16 & 0xff) + 587 * (row[x] >> 8 & 0xff) + 114 * (row[x] & 0xff);
    }
    std::vector<float> luma;
    for (const std::uint32_t sum : sums) luma.push_back(static_cast<float>(sum) / (1000.0f * static_cast<float>(rows)));
    return luma;
}

}  // namespace

void Melt(const ImageView& source, const MutableImageView& target, const Run& run) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    std::vector<float> drag = ColumnLuma(source);  // pixels at the bottom
    const RandomRow broad(0, kEffect, 0), fine(0, kEffect, 1);
    for (std::size_t x = 0; x < drag.size(); ++x) {
        const float at = static_cast<float>(x) / width;
        const float flow = SmoothNoise(at * 10, broad), drop = SmoothNoise(at * 50, fine);
        drag[x] = height / 4 * (0.4f * flow + 0.6f * drop * drop * drop) * (0.5f + drag[x] / 510);
    }
    Passes passes(run);
    Warp(source, target, passes, [&](int x, int y, int count, Places& places) {
        const float part = Smoothstep(static_cast<float>(y) / height);
        for (int i = 0; i < count; ++i) {
            places.x[i] = (x + i) * kPlaceOne;
            places.y[i] = y * kPlaceOne - static_cast<int>(drag[static_cast<std::size_t>(x + i)] * part * kPlaceOne);
        }
    });
}

}  // namespace kelu::engine
