// Noise: its statistics, measured over a quarter of a million pixels.
// SPDX-License-Identifier: MIT
#include "engine/noise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {
namespace {

constexpr int kSide = 512;

Picture NoiseOnGray(int strength, bool colored) {
    const Picture source = Filled(kSide, kSide, {128, 128, 128, 255});
    Picture target(kSide, kSide);
    engine::Noise(source.View(), target.Target(), strength, colored, {});
    return target;
}

double Mean(const std::function<double(int x, int y)>& value) {
    double sum = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) sum += value(x, y);
    return sum / kSide / kSide;
}

TEST(Noise, IsGaussianWithTheStatedDeviation) {
    for (const int strength : {2, 10, 50}) {
        const Picture picture = NoiseOnGray(strength, true);
        for (const auto channel : {&Rgba::red, &Rgba::green, &Rgba::blue}) {
            const auto value = [&](int x, int y) { return picture.At(x, y).*channel - 128.0; };
            const double deviation = 0.6 * strength;
            // Rounding to whole levels adds a variance of 1/12.
            const double variance = deviation * deviation + 1 / 12.0;
            EXPECT_NEAR(Mean(value), 0, 0.3) << strength;
            EXPECT_NEAR(Mean([&](int x, int y) { return std::pow(value(x, y), 2); }) / variance, 1, 0.03) << strength;
            EXPECT_NEAR(Mean([&](int x, int y) { return std::abs(value(x, y)) <= deviation ? 1 : 0; }), 0.683,
                        0.03 + 0.25 / deviation)
                << strength;
            EXPECT_NEAR(Mean([&](int x, int y) { return std::abs(value(x, y)) > 2 * deviation ? 1 : 0; }), 0.0455,
                        0.01 + 0.1 / deviation)
                << strength;
        }
    }
}

TEST(Noise, ChannelsAndNeighboursAreIndependent) {
    const Picture picture = NoiseOnGray(20, true);
    const double variance = 12 * 12;
    const auto correlation = [&](auto first, auto second) {
        return Mean([&](int x, int y) { return (first(x, y) - 128.0) * (second(x, y) - 128.0); }) / variance;
    };
    const auto red = [&](int x, int y) { return picture.At(x, y).red; };
    EXPECT_NEAR(correlation(red, [&](int x, int y) { return picture.At(x, y).green; }), 0, 0.01);
    EXPECT_NEAR(correlation(red, [&](int x, int y) { return picture.At(x, y).blue; }), 0, 0.01);
    EXPECT_NEAR(correlation(red, [&](int x, int y) { return picture.At(x + 1, y).red; }), 0, 0.01);
    EXPECT_NEAR(correlation(red, [&](int x, int y) { return picture.At(x, y + 1).red; }), 0, 0.01);
    EXPECT_NEAR(correlation(red, [&](int x, int y) { return picture.At(x + 1, y + 1).red; }), 0, 0.01);
}

TEST(Noise, UncoloredNoiseIsTheSameInAllChannels) {
    const Picture picture = NoiseOnGray(30, false);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const Rgba p = picture.At(x, y);
            ASSERT_TRUE(p.red == p.green && p.green == p.blue) << x << ", " << y;
        }
}

}  // namespace
}  // namespace kelu::engine_test
