// The weight of the effects that grow with the distance from a point, and the points they take.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace kelu::engine {

/// A point in image pixels; it may lie anywhere, also outside the picture.
struct Point {
    int x = 0;
    int y = 0;
};

/// Far beyond any picture, and small enough for float arithmetic on squares.
constexpr int kFarthest = 1'000'000;

constexpr Point Sensible(Point point) {
    return {std::clamp(point.x, -kFarthest, kFarthest), std::clamp(point.y, -kFarthest, kFarthest)};
}

/// Distance in image pixels from a point to the centre of the farthest corner pixel; 0 only where the picture is that
/// one pixel.
inline float FarthestCorner(Point point, int width, int height) {
    const auto reach = [](int at, int size) {
        return static_cast<double>(std::max(std::abs(at), std::abs(size - 1 - at)));
    };
    return static_cast<float>(std::hypot(reach(point.x, width), reach(point.y, height)));
}

}  // namespace kelu::engine
