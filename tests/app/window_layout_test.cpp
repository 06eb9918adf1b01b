// The layout of the main window in twips.
// SPDX-License-Identifier: MIT
#include "app/window_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kelu {
namespace {

TEST(WindowLayout, SmallSizesBecomeExactlyTheMinimum) {
    const WindowSize large{28800, 16200}, low{14400, 8100};
    EXPECT_EQ(AllowedSize({13300, 9510}, large), (WindowSize{13300, 9510}));
    EXPECT_EQ(AllowedSize({13305, 9510}, large), (WindowSize{13305, 9510}));
    EXPECT_EQ(AllowedSize({15000, 9000}, large), (WindowSize{13300, 9510}));
    EXPECT_EQ(AllowedSize({13299, 20000}, large), (WindowSize{13300, 9510}));
    EXPECT_EQ(AllowedSize(large, large), large);
    EXPECT_EQ(AllowedSize(low, low), low) << "a screen of 1920 x 1080 pixels at ratio 2";
    EXPECT_EQ(AllowedSize({14000, 8000}, low), (WindowSize{13300, 8100}));
}

TEST(WindowLayout, NothingLiesOverTheCanvasOrItsNeighboursAtAnySize) {
    for (const WindowSize& size : {kMinimumSize, kDesignSize, WindowSize{28800, 16200}, WindowSize{13300, 8100}}) {
        const WindowLayout at = LayOut(size);
        const auto right = [](const TwipsRect& rect) { return rect.left + rect.width; };
        const auto bottom = [](const TwipsRect& rect) { return rect.top + rect.height; };
        EXPECT_GE(at.picCanvas.top, bottom(at.picTB)) << size.width;
        EXPECT_LE(right(at.picCanvas), std::min(at.pagerTB1.left, at.pnlSettings.left)) << size.width;
        EXPECT_LE(bottom(at.pagerTB1), at.pnlSettings.top) << size.width;
        EXPECT_LE(std::max(bottom(at.pnlSettings), bottom(at.picZoomContainer)), at.sBar1.top) << size.width;
        EXPECT_GE(at.picZoomContainer.top, bottom(at.picCanvas)) << size.width;
        EXPECT_LE(std::max(right(at.pnlSettings), right(at.picSystem)), size.width);
        EXPECT_EQ(bottom(at.sBar1), size.height);
        EXPECT_EQ(at.picOriginal, at.picCanvas);
    }
}

}  // namespace
}  // namespace kelu
