// Progress bar arithmetic and colours, worked out by hand.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/bar_geometry.h"

#include <gmock/gmock.h>

#include "controls/progress_bar/bar_strokes.h"

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

TEST(BarGeometry, VerticalChunks) {
    const Box client{3, 0, 19, 160};
    const Chunks chunks;
    EXPECT_EQ(VerticalBar(client, 0, chunks).top, 160);
    EXPECT_EQ(VerticalBar(client, 50 / 98.0, chunks).top, 80);  // 78.4, 82 above the bottom: ten steps
    EXPECT_EQ(VerticalBar(client, 100 / 98.0, chunks).top, 0);  // -3.3, cut to whole steps from the bottom
    EXPECT_THAT(VerticalGaps(client, {3, 140, 19, 160}, chunks),
                ElementsAre(Box{3, 158, 19, 160}, Box{3, 150, 19, 152}));
}

TEST(BarGeometry, TextIsCentred) {
    EXPECT_EQ(TextBox({160, 19}, {31, 14}), (Box{64, 2, 95, 16}));  // 64.5 and 2.5 to the even pixels
    EXPECT_EQ(TextBox({20, 10}, {31, 14}), (Box{-6, -2, 25, 12}));
}

class Strokes : public testing::Test {
 protected:
    Strokes() { picture_.fill(Qt::white); }
    /// Rows of the picture: '.' white, '#' black, '+' anything else.
    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int y = 0; y < picture_.height(); ++y) {
            std::string row;
            for (int x = 0; x < picture_.width(); ++x) {
                const QRgb pixel = picture_.pixel(x, y) & 0xFFFFFFU;
                row += pixel == 0xFFFFFFU ? '.' : pixel == 0 ? '#' : '+';
            }
            rows.push_back(row);
        }
        return rows;
    }
    QImage picture_{6, 4, QImage::Format_RGB32};
};

TEST_F(Strokes, LinesLeaveTheirLastPixel) {
    {
        QPainter painter(&picture_);
        DrawLine(painter, 0, 0, 3, 0, 0);
        DrawLine(painter, 5, 3, 5, 1, 0);
        DrawLine(painter, 0, 1, 3, 4, 0);
    }
    EXPECT_THAT(Rows(), ElementsAre("###...", "#.....", ".#...#", "..#..#"));
}

TEST_F(Strokes, GradientHasOneLineMoreThanItsLength) {
    {
        QPainter painter(&picture_);
        DrawGradient(painter, 0xFFFFFF, 0x000000, 1, 1, 5, 2, GradientLines::kHorizontal);
    }
    EXPECT_THAT(Rows(), ElementsAre("......", "......", ".++++.", ".####."));
    EXPECT_EQ(picture_.pixelColor(1, 2), QColor(128, 128, 128)) << "127.5 to the even 128";
    {
        QPainter painter(&picture_);
        DrawGradient(painter, 0x000000, 0xFFFFFF, 3, 0, 2, 2, GradientLines::kVertical);
        DrawGradient(painter, 0, 0, 0, 0, 0, 4, GradientLines::kVertical);
    }
    EXPECT_THAT(Rows(), ElementsAre("...#+.", "...#+.", ".++++.", ".####."));
}

}  // namespace
}  // namespace kelu::bar
