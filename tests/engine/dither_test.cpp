// The dither: hand-computed errors, mean luma, texture.
// SPDX-License-Identifier: MIT
#include "engine/dither.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {
namespace {

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

double MeanLuma(const Picture& picture, int left, int top, int size) {
    double sum = 0;
    for (int y = top; y < top + size; ++y)
        for (int x = left; x < left + size; ++x) sum += Luma(picture.At(x, y));
    return sum / size / size;
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

TEST(BlackWhiteDither, KeepsTheMeanLuma) {
    for (const int level : {3, 40, 64, 127, 128, 200, 250}) {
        const Picture even = Filled(64, 64, {level, level, level, 255});
        EXPECT_NEAR(MeanLuma(Dithered(even, 0), 0, 0, 64), level, 1) << level;
    }
    const Picture natural = Natural(256, 256);
    const Picture dithered = Dithered(natural, 0);
    EXPECT_NEAR(MeanLuma(dithered, 0, 0, 256), MeanLuma(natural, 0, 0, 256), 1);
    for (int y = 0; y < 256; y += 32)
        for (int x = 0; x < 256; x += 32)
            EXPECT_NEAR(MeanLuma(dithered, x, y, 32), MeanLuma(natural, x, y, 32), 8) << x << ", " << y;
}

}  // namespace
}  // namespace kelu::engine_test
