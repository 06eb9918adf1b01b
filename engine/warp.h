// The driver of class D: each result pixel is one bilinear sample of the source, wherever an effect places it.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

#include "engine/bands.h"
#include "engine/image_view.h"

namespace kelu::engine {

/// Pixels that are placed at once.
constexpr int kWarpSpan = 256;

/// Least rows of a band, which is done span by span from the left: spans under one another want the same source rows,
/// and so these are still in the cache, however wide the picture is.
constexpr int kWarpRows = 32;

/// A place is in 1/256 image pixel. Places may lie anywhere; outside the picture lies the nearest edge pixel.
constexpr int kPlaceOne = 256;
struct Places {
    std::int32_t x[kWarpSpan];
    std::int32_t y[kWarpSpan];
};

/// The `count` bilinear samples at `places`, all four channels; exact where a place is a whole pixel.
void SampleBilinear(const ImageView& source, const Places& places, int count, std::uint32_t* out);

/// Renders a warp. `place(x, y, count, places)` fills in the places of the result pixels [x, x + count) of row y.
template <class Place>
void Warp(const ImageView& source, const MutableImageView& target, Passes& passes, const Place& place) {
    passes.Split(
        target.height, target.width,
        [&](int begin, int end) {
            Places places;
            for (int x = 0; x < target.width; x += kWarpSpan)
                for (int y = begin; y < end; ++y) {
                    const int count = std::min(kWarpSpan, target.width - x);
                    place(x, y, count, places);
                    SampleBilinear(source, places, count, target.Row(y) + x);
                }
        },
        kWarpRows);
}

}  // namespace kelu::engine
