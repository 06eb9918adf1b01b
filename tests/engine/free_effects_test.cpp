// What holds for effects that are drawn or thrown freely: a blur keeps the mean and even pictures even, the dither
// hands its errors on as by hand, noise has the stated statistics, Scramble exchanges whole squares in pairs.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "engine/blurs.h"
#include "engine/dither.h"
#include "engine/noise.h"
#include "engine/random_order.h"
#include "engine/rearrange.h"
#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {
namespace {

struct Place {
    double x, y;
};

// Products that are cut off darken by a hundredth of a level, which no tolerance of a pixel sees.
TEST(GaussianBlur, NeitherBrightensNorDarkens) {
    constexpr int kWidth = 400, kHeight = 300, kFrame = 100;  // the frame takes what flows out of the noise
    const Picture noise = Noise(kWidth, kHeight);
    Picture source = Filled(kWidth, kHeight, {128, 128, 128, 255}), blurred(kWidth, kHeight);
    for (int y = kFrame; y < kHeight - kFrame; ++y)
        for (int x = kFrame; x < kWidth - kFrame; ++x) source.Set(x, y, noise.At(x, y));
    for (const int strength : {1, 3, 4, 5}) {
        engine::Blur1(source.View(), blurred.Target(), strength, {});
        double gain = 0;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) gain += blurred.At(x, y).red - source.At(x, y).red;
        EXPECT_NEAR(gain / (kWidth * kHeight), 0, 0.002) << strength;
    }
}

TEST(PathBlur, LeavesEvenPicturesEvenAndTheCentreSharp) {
    const Picture even = Filled(300, 200, {200, 77, 3, 255});
    const Picture noise = Noise(300, 200);
    for (const int strength : {1, 4, 100, 1'000'000}) {
        Picture target(300, 200);
        engine::Blur2(even.View(), target.Target(), {-2'000'000'000, 2'000'000'000}, strength, {});
        EXPECT_EQ(Difference(target, even, 0), "");
        engine::Blur3(even.View(), target.Target(), {250, 100}, strength, {});
        EXPECT_EQ(Difference(target, even, 0), "");
        engine::Blur3(noise.View(), target.Target(), {250, 100}, strength, {});
        EXPECT_EQ(target.At(250, 100), noise.At(250, 100));
    }
}

Picture Dithered(const Picture& source, int hardness) {
    Picture target(source.Width(), source.Height());
    engine::BlackWhiteDither(source.View(), target.Target(), hardness, {});
    return target;
}

// One character a pixel: # white, . black.
std::string Row(const Picture& picture, int y) {
    std::string text;
    for (int x = 0; x < picture.Width(); ++x) text += picture.At(x, y).red == 255 ? '#' : '.';
    return text;
}

TEST(BlackWhiteDither, ErrorsMoveAsByHand) {
    // Row of 100: 100 black, hands on 43.75 -> 143.75 white, error -111.25, -48.7 -> 51.3 black, 22.5 -> 122.5 black,
    // 53.6 -> 153.6 white.
    EXPECT_EQ(Row(Dithered(Filled(5, 1, {100, 100, 100, 255}), 0), 0), ".#..#");
    // Half of the error: 100, 121.9, 126.7, 127.7, 127.9 all stay black.
    EXPECT_EQ(Row(Dithered(Filled(5, 1, {100, 100, 100, 255}), 50), 0), ".....");
    // The second row runs from right to left. Above: 120 black (error 120), 172.5 white (-82.5). Shares that fall off
    // an end go to the pixel below: left 120 · (5 + 3) / 16 - 82.5 · 3/16 = 44.5, right 120 / 16 - 82.5 · (5 + 1 + 7) /
    // 16 = -59.5. Right first: 60.5 black, hands on 26.4; left 120 + 44.5 + 26.4 = 190.9 white.
    const Picture square = Dithered(Filled(2, 2, {120, 120, 120, 255}), 0);
    EXPECT_EQ(Row(square, 0), ".#");
    EXPECT_EQ(Row(square, 1), "#.");
    // In a single column all sixteen shares go straight down: 64 black, then 64 + 64, which is just white.
    const Picture column = Dithered(Filled(1, 2, {64, 64, 64, 255}), 0);
    EXPECT_EQ(Row(column, 0) + Row(column, 1), ".#");
}

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

// Squares are told apart by one colour each; a square's number is in its red and green.
Picture Numbered(int side, int columns, int rows, int restX, int restY) {
    Picture picture(side * columns + restX, side * rows + restY);
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            const int column = x / side, row = y / side, number = row * columns + column;
            const bool whole = column < columns && row < rows;
            picture.Set(x, y, {number % 256, number / 256, whole ? 0 : 255, (y % side) * 16 + x % side});
        }
    return picture;
}

TEST(Scramble, ExchangesPairsOfWholeSquares) {
    constexpr int kSide = 5, kColumns = 31, kRows = 20;
    const Picture source = Numbered(kSide, kColumns, kRows, 3, 2);
    for (const int percent : {1, 50, 100, 200}) {
        Picture target(source.Width(), source.Height());
        engine::Scramble(source.View(), target.Target(), kSide, percent, {});
        const auto numberAt = [&](int square) {
            const Rgba p = target.At(square % kColumns * kSide, square / kColumns * kSide);
            return p.green * 256 + p.red;
        };
        int moved = 0;
        for (int square = 0; square < kColumns * kRows; ++square) {
            const int other = numberAt(square);
            EXPECT_EQ(numberAt(other), square) << "no exchange of two";
            if (other != square) ++moved;
        }
        EXPECT_EQ(moved, kColumns * kRows * std::min(percent, 100) / 100 / 2 * 2) << percent << " percent";
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) {
                if (source.At(x, y).blue == 255)
                    EXPECT_EQ(target.At(x, y), source.At(x, y)) << "a cut square moved";
                else
                    EXPECT_EQ(target.At(x, y).alpha, source.At(x, y).alpha) << "a square is torn at " << x << "," << y;
            }
    }
}

}  // namespace
}  // namespace kelu::engine_test
