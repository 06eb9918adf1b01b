// Progress bar arithmetic, worked out by hand.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_geometry.h"

#include <gmock/gmock.h>

namespace kelu::bar {

void PrintTo(const Box& box, std::ostream* out) {
    *out << '(' << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom << ')';
}

namespace {

using testing::ElementsAre;

TEST(BarGeometry, ValueAndPercent) {
    const struct {
        int value, min, max, percent, read;
    } rows[] = {
        {40, 0, 100, 40, 40},
        {1, 0, 8, 12, 1},  // 12.5 to the even 12, and 0.96 back to 1
        {3, 0, 8, 38, 3},  // 37.5 to the even 38
        {250, 0, 100, 250, 250},
        {5, 1, 10, 51, 5},  // the minimum is added as it stands: 50 + 1; read back 5.1
        {5, 2, 10, 52, 3},  // 5.2 / 2
        {2147483647, 0, 2147483647, 100, 2147483647},
        {2147483647, 0, 1, 2147483647, 21474836},
    };
    for (const auto& row : rows) {
        const int percent = PercentOfValue(row.value, row.min, row.max, 7);
        EXPECT_EQ(percent, row.percent) << row.value << " of " << row.max;
        EXPECT_EQ(ValueOfPercent(percent, row.min, row.max), row.read) << row.value << " of " << row.max;
    }
    EXPECT_EQ(PercentOfValue(50, 0, 0, 7), 7) << "no range: the position stays";
}

TEST(BarGeometry, HorizontalChunks) {
    const Box client{3, 0, 160, 19};
    const Chunks chunked, smooth{2, 2};
    const struct {
        int percent;
        Chunks chunks;
        int right, shownRight, fillEnd;
    } rows[] = {
        {0, chunked, 3, 12, 12},        // 0 still shows a chunk
        {5, chunked, 11, 12, 12},       // 3 + 157 x 0.0510 = 11.01
        {50, chunked, 83, 83, 83},      // 83.1
        {60, chunked, 99, 99, 99},      // 99.12
        {97, chunked, 155, 155, 155},   // 158.4
        {100, chunked, 163, 163, 159},  // 163.2: off the right side
        {8, smooth, 15, 15, 15},        // 15.8 to 16, cut to 15
        {50, smooth, 83, 83, 83},
    };
    for (const auto& row : rows) {
        const Box bar = HorizontalBar(client, row.percent / 98.0, row.chunks);
        EXPECT_EQ(bar, (Box{3, 0, row.right, 19})) << row.percent;
        EXPECT_EQ(ShownBar(bar).right, row.shownRight) << row.percent;
        EXPECT_EQ(FillEnd(ShownBar(bar), {0, 0, 160, 19}), row.fillEnd) << row.percent;
    }
    EXPECT_EQ(HorizontalBar(client, -1, chunked).right, 3);
    EXPECT_THAT(HorizontalGaps(client, {3, 0, 27, 19}, chunked),
                ElementsAre(Box{10, 0, 12, 19}, Box{18, 0, 20, 19}, Box{26, 0, 28, 19}));
}

}  // namespace
}  // namespace kelu::bar
