// The progress bar: percent and value worked out by hand, and what stands on it pixel by pixel.
// SPDX-License-Identifier: MIT
#include "controls/progress_bar/xp_progress_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTest>

#include "controls/progress_bar/bar_geometry.h"
#include "controls/progress_bar/bar_looks.h"

namespace kelu {
namespace {

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
        const int percent = bar::PercentOfValue(row.value, row.min, row.max, 7);
        EXPECT_EQ(percent, row.percent) << row.value << " of " << row.max;
        EXPECT_EQ(bar::ValueOfPercent(percent, row.min, row.max), row.read) << row.value << " of " << row.max;
    }
    EXPECT_EQ(bar::PercentOfValue(50, 0, 0, 7), 7) << "no range: the position stays";
}

constexpr ColorRef kBlue = 0xC02000;

QImage Shot(const bar::State& state, const QSize& size = {160, 19}) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QPainter painter(&picture);
    bar::Paint(painter, size, state);
    return picture;
}

TEST(ProgressLooks, EachFillsToItsPosition) {
    const struct {
        int look;
        int last;  ///< last column of the bar's colour in a middle row at 50 percent of 160 pixels
        QRgb ground;
    } rows[] = {
        {bar::kFlat, 79, 0xFFFFFF},    {bar::kSunken, 79, 0xFFFFFF}, {bar::kPattern, 78, 0xFFFFFF},
        {bar::kHatched, 78, 0xFFFFFF}, {bar::kGlass, 79, 0xFFFFFF},
    };
    bar::State state;
    state.color = kBlue;
    state.percent = 50;
    state.image = QPixmap(4, 4);
    state.image.fill(Qt::red);
    for (const auto& row : rows) {
        state.look = row.look;
        state.vertical = false;
        const QImage across = Shot(state);
        EXPECT_NE(across.pixel(row.last, 10) & 0xFFFFFF, row.ground) << row.look;
        EXPECT_EQ(across.pixel(row.last + 1, 10) & 0xFFFFFF, row.ground) << row.look;
        // A vertical bar grows from the bottom, by the same pixels.
        state.vertical = true;
        const QImage up = Shot(state, {19, 160});
        EXPECT_NE(up.pixel(10, 159 - row.last) & 0xFFFFFF, row.ground) << row.look;
        EXPECT_EQ(up.pixel(10, 158 - row.last) & 0xFFFFFF, row.ground) << row.look;
    }
}

TEST(ProgressLooks, EveryLookAtEverySizeStaysInside) {
    bar::State state;
    state.color = kBlue;
    state.showText = true;
    for (int look = -1; look <= 10; ++look) {
        for (const QSize& size : {QSize(1, 1), QSize(5, 3), QSize(12, 40), QSize(40, 12), QSize(300, 20)}) {
            for (const int percent : {-300, 0, 50, 100}) {
                for (const bool vertical : {false, true}) {
                    state.look = look;
                    state.percent = percent;
                    state.vertical = vertical;
                    const QImage shot = Shot(state, size);
                    for (int y = 0; y < size.height(); ++y) {
                        for (int x = 0; x < size.width(); ++x) {
                            ASSERT_NE(shot.pixel(x, y), QColor(Qt::magenta).rgb()) << look << ": left unpainted";
                        }
                    }
                }
            }
        }
    }
}

TEST(ProgressBar, ThePercentStaysBetweenItsEnds) {
    XP_ProgressBar bar;
    bar.SetValue(100);
    EXPECT_EQ(bar.Percent(), 100);
    bar.SetValue(250);
    EXPECT_EQ(bar.Percent(), 100);
    EXPECT_EQ(bar.Value(), 100);
    bar.SetValue(-250);
    EXPECT_EQ(bar.Percent(), 0);
}

}  // namespace
}  // namespace kelu
