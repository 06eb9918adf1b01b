// Small pictures for the tests of the effect engine, without Qt: made by rule, read with the edge repeated, compared.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/image_view.h"

namespace kelu::engine_test {

struct Rgba {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 255;

    bool operator==(const Rgba&) const = default;
};

/// Luma of Rec. 601, rounded to nearest.
int Luma(const Rgba& pixel);

/// The nearest byte, halves upward.
int Rounded(double value);

/// A picture whose rows are followed by guard bytes, so that a kernel that writes too far is found out.
class Picture {
 public:
    Picture(int width, int height);

    int Width() const { return width_; }
    int Height() const { return height_; }

    /// The pixel, or the nearest edge pixel for places outside.
    Rgba At(int x, int y) const;
    void Set(int x, int y, const Rgba& pixel);

    engine::ImageView View() const { return {data_.data() + kGuard, width_, height_, stride_}; }
    engine::MutableImageView Target() { return {data_.data() + kGuard, width_, height_, stride_}; }

    /// False when something was written outside the pixels.
    bool GuardIntact() const;

 private:
    static constexpr int kGuard = 64;

    int width_;
    int height_;
    std::ptrdiff_t stride_;
    std::vector<std::uint8_t> data_;
};

/// Soft shades, hard edges, thin lines and a little grain, as photographs have; every alpha value occurs.
Picture Natural(int width, int height);

/// Independent random bytes in all four channels.
Picture Noise(int width, int height, std::uint32_t seed = 1);

Picture Filled(int width, int height, const Rgba& pixel);

/// Empty when no channel differs by more than `tolerance`; else the first such place, both values and the largest
/// difference.
std::string Difference(const Picture& actual, const Picture& expected, int tolerance);

}  // namespace kelu::engine_test
