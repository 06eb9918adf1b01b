// Inputs far outside their ranges: every effect clamps them, writes the whole picture and nothing else. The sanitizer
// build runs the same and finds what overflows.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>

#include "engine/blobs.h"
#include "engine/blurs.h"
#include "engine/extremes.h"
#include "engine/mosaic.h"
#include "engine/oil_painting.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"
#include "engine/wind.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();

// Each with two inputs of any value.
std::vector<EffectRow> WithInputs(int a, int b) {
    const Point point{a, b};
    const Color color{a, b, a};
    return {
        {"Maximum", [=](auto& s, auto& t, auto& run) { Maximum(s, t, b, a, run); }, {}},
        {"Minimum", [=](auto& s, auto& t, auto& run) { Minimum(s, t, b, a, run); }, {}},
        {"Mosaic", [=](auto& s, auto& t, auto& run) { Mosaic(s, t, a, b, run); }, {}},
        {"OilPainting", [=](auto& s, auto& t, auto& run) { OilPainting(s, t, a, run); }, {}},
        {"Blur1", [=](auto& s, auto& t, auto& run) { Blur1(s, t, a, run); }, {}},
        {"Blur2", [=](auto& s, auto& t, auto& run) { Blur2(s, t, point, 100, run); }, {}},
        {"Blur3", [=](auto& s, auto& t, auto& run) { Blur3(s, t, point, b, run); }, {}},
        {"Explode", [=](auto& s, auto& t, auto& run) { Explode(s, t, point, 100, run); }, {}},
        {"Implode", [=](auto& s, auto& t, auto& run) { Implode(s, t, point, b, color, run); }, {}},
        {"FishEye", [=](auto& s, auto& t, auto& run) { FishEye(s, t, color, run); }, {}},
        {"Scramble", [=](auto& s, auto& t, auto& run) { Scramble(s, t, a, b, run); }, {}},
        {"Tile", [=](auto& s, auto& t, auto& run) { Tile(s, t, a, b, run); }, {}},
        {"Spray", [=](auto& s, auto& t, auto& run) { Spray(s, t, a, run); }, {}},
        {"Wind", [=](auto& s, auto& t, auto& run) { Wind(s, t, a, b, run); }, {}},
        {"Blobs", [=](auto& s, auto& t, auto& run) { Blobs(s, t, a, b, run); }, {}},
    };
}

TEST(AnyInput, GivesAWholePicture) {
    for (const int a : {kLeast, -1000, 0, 1, 999, kMost})
        for (const int b : {kLeast, -7, 50, kMost})
            for (const EffectRow& row : WithInputs(a, b))
                for (const auto& [width, height] : {std::pair{1, 1}, {37, 29}, {150, 3}}) {
                    SCOPED_TRACE(row.name + " of " + std::to_string(a) + ", " + std::to_string(b));
                    const Picture source = Noise(width, height);
                    Picture overZero(width, height), overNoise = Noise(width, height, 60);
                    row.render(source.View(), overZero.Target(), {2, {}});
                    row.render(source.View(), overNoise.Target(), {1, {}});
                    EXPECT_EQ(Difference(overNoise, overZero, 0), "") << "something was left as it was";
                    EXPECT_TRUE(overZero.GuardIntact() && overNoise.GuardIntact());
                }
}

}  // namespace
}  // namespace kelu::engine_test
