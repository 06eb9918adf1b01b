// Slider arithmetic in tables, worked out by hand.
// SPDX-License-Identifier: MIT
#include "controls/slider/slider_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelu::slider {
namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr Direction kAcross = Direction::kHorizontal;
constexpr Direction kUp = Direction::kVertical;

Parts Bar(Direction direction, int length, QSize thumb = {16, 16}) {
    return {direction, direction == kAcross ? QSize(length, 16) : QSize(16, length), thumb, {}};
}

TEST(SliderGeometry, ValueToThumb) {
    const struct {
        Direction direction;
        int length;
        Range range;
        int value;
        double place;
    } rows[] = {
        {kAcross, 116, {0, 10}, 0, 0},
        {kAcross, 116, {0, 10}, 7, 70},
        {kAcross, 116, {0, 10}, 10, 100},
        {kAcross, 117, {1, 100}, 50, 101 * 49 / 99.0},
        {kAcross, 66, {0, 1000}, 503, 25.15},
        {kAcross, 116, {-255, 255}, 0, 50},
        {kUp, 116, {0, 10}, 0, 100},
        {kUp, 116, {0, 10}, 10, 0},
        {kUp, 116, {-4, 4}, 3, 12.5},
        {kAcross, 116, {kLeast, kMost}, kMost, 100},
        {kAcross, 116, {kLeast, kMost}, kLeast, 0},
        {kAcross, 16, {0, 10}, 5, 0},
    };
    for (const auto& row : rows) {
        EXPECT_DOUBLE_EQ(ThumbPlace(Bar(row.direction, row.length), row.range, row.value), row.place)
            << row.length << " pixels, value " << row.value;
    }
}

TEST(SliderGeometry, ThumbToValue) {
    const struct {
        Direction direction;
        int length;
        Range range;
        double place;
        int value;
    } rows[] = {
        {kAcross, 116, {0, 10}, 44, 4},
        {kAcross, 116, {0, 10}, 46, 5},
        // The exact middle between two steps goes to the even value, counted from 0 and not from the minimum.
        {kAcross, 116, {0, 1}, 50, 0},
        {kAcross, 116, {1, 2}, 50, 2},
        {kAcross, 116, {-1, 0}, 50, 0},
        {kAcross, 116, {0, 10}, 45, 4},
        {kAcross, 116, {0, 10}, 55, 6},
        {kAcross, 65, {0, 7}, 3.5, 0},
        // 1 / 6 of 9 is exactly one and a half, although 1 / 6 is no exact fraction.
        {kAcross, 22, {0, 9}, 1, 2},
        {kAcross, 22, {0, 9}, 3, 4},
        {kUp, 116, {0, 10}, 0, 10},
        {kUp, 116, {0, 10}, 100, 0},
        {kUp, 116, {0, 1}, 50, 0},
        {kAcross, 116, {kLeast, kMost}, 0, kLeast},
        {kAcross, 116, {kLeast, kMost}, 100, kMost},
        {kAcross, 116, {kLeast, kMost}, 50, 0},
        // No travel: the value stays.
        {kAcross, 16, {0, 10}, 0, 3},
        {kUp, 10, {0, 10}, 0, 3},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ValueAtPlace(Bar(row.direction, row.length), row.range, row.place, 3), row.value)
            << row.length << " pixels, range " << row.range.min << " to " << row.range.max << ", place " << row.place;
    }
}

TEST(SliderGeometry, EveryValueSurvivesItsOwnPlace) {
    for (const Direction direction : {kAcross, kUp}) {
        for (const int length : {17, 40, 117, 121}) {
            const Parts parts = Bar(direction, length);
            const Range range{-255, 255};
            for (int value = range.min; value <= range.max; ++value) {
                ASSERT_EQ(ValueAtPlace(parts, range, ThumbPlace(parts, range, value), 0), value) << length << " pixels";
            }
        }
    }
}

TEST(SliderGeometry, SizeThumbAndRail) {
    const struct {
        const char* what;
        Parts parts;
        QSize fitted;
        double across;
        QRect rail;
    } rows[] = {
        {"horizontal", {kAcross, {117, 16}, {16, 16}, {}}, {117, 16}, 0, {6, 6, 105, 4}},
        {"too high", {kAcross, {117, 24}, {16, 16}, {}}, {117, 16}, 0, {6, 6, 105, 4}},
        {"no width", {kAcross, {0, 24}, {16, 16}, {}}, {16, 16}, 0, {6, 6, -12, 4}},
        {"vertical", {kUp, {40, 200}, {16, 16}, {}}, {16, 200}, 0, {6, 6, 4, 188}},
        {"no height", {kUp, {40, 0}, {10, 20}, {}}, {10, 20}, 0, {3, 8, 4, -16}},
        // Half pixels go to the even one: (15 - 4) / 2 = 5.5 to 6, 11 / 2 - 2 = 3.5 to 4.
        {"odd thumb", {kAcross, {100, 15}, {11, 15}, {}}, {100, 15}, 0, {4, 6, 93, 4}},
        {"rail picture", {kAcross, {50, 50}, {16, 16}, {180, 21}}, {184, 21}, 2.5, {6, 6, 38, 4}},
        {"thin rail picture", {kAcross, {50, 50}, {16, 16}, {180, 10}}, {184, 16}, 0, {6, 6, 38, 4}},
        {"vertical rail picture", {kUp, {50, 50}, {16, 16}, {20, 90}}, {20, 94}, 2, {6, 6, 4, 38}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FittedSize(row.parts), row.fitted) << row.what;
        EXPECT_EQ(ThumbAcross(row.parts), row.across) << row.what;
        EXPECT_EQ(RailRect(row.parts), row.rail) << row.what;
    }
}

}  // namespace
}  // namespace kelu::slider
