// The layout of the main window as a table of twips.
// SPDX-License-Identifier: MIT
#include "app/window_layout.h"

#include <gtest/gtest.h>

namespace kelu {

void PrintTo(const TwipsRect& r, std::ostream* out) {
    *out << r.left << "," << r.top << " " << r.width << "x" << r.height;
}

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

TEST(WindowLayout, PlacesEveryControlFromTheEdges) {
    // Hand-computed for the design size and for a screen of 1920 x 1080 pixels.
    struct Row {
        const char* name;
        TwipsRect WindowLayout::*control;
        TwipsRect design;
        TwipsRect large;
    };
    const Row rows[] = {
        {"picLogo", &WindowLayout::picLogo, {240, 240}, {240, 240}},
        {"picSystem", &WindowLayout::picSystem, {12285, 120, 900, 300}, {27780, 120, 900, 300}},
        {"picTB", &WindowLayout::picTB, {90, 90, 4335, 450}, {90, 90, 4335, 450}},
        {"cmdHelp", &WindowLayout::cmdHelp, {11685, 120}, {27180, 120}},
        {"picPipe1", &WindowLayout::picPipe1, {11605, 180}, {27100, 180}},
        {"cmdSettings", &WindowLayout::cmdSettings, {10855, 120}, {26350, 120}},
        {"picCanvas", &WindowLayout::picCanvas, {480, 960, 10705, 7590}, {480, 960, 26200, 14280}},
        {"picOriginal", &WindowLayout::picOriginal, {480, 960, 10705, 7590}, {480, 960, 26200, 14280}},
        {"pagerTB1", &WindowLayout::pagerTB1, {11305, 960, 0, 4790}, {26800, 960, 0, 11480}},
        {"pnlSettings", &WindowLayout::pnlSettings, {11255, 5810, 1935, 3135}, {26750, 12500, 1935, 3135}},
        {"picZoomContainer", &WindowLayout::picZoomContainer, {10005, 8610, 1250, 370}, {25500, 15300, 1250, 370}},
        {"picCapContainer", &WindowLayout::picCapContainer, {9905, 8610}, {25400, 15300}},
        {"picCapPreview", &WindowLayout::picCapPreview, {8415, 960}, {23910, 960}},
        {"lstSFX", &WindowLayout::lstSFX, {11255, 960}, {26750, 960}},
        {"sBar1", &WindowLayout::sBar1, {0, 9015, 13305, 495}, {0, 15705, 28800, 495}},
    };
    const WindowLayout design = LayOut({13305, 9510});
    const WindowLayout large = LayOut({28800, 16200});
    for (const Row& row : rows) {
        EXPECT_EQ(design.*row.control, row.design) << row.name;
        EXPECT_EQ(large.*row.control, row.large) << row.name;
    }
}

}  // namespace
}  // namespace kelu
