// Composition of frames: disposal, transparency, tables, interlace, mirroring, limits.
// SPDX-License-Identifier: MIT
#include "pictures/gif/frame_composer.h"

#include <gtest/gtest.h>

#include "tests/pictures/gif/gif_bytes.h"

namespace kelu {
namespace {

using namespace test;
using Pixels = std::vector<unsigned>;

Pixels Read(const QImage& image) {
    Pixels pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) pixels.push_back(image.pixel(x, y));
    return pixels;
}

std::vector<Pixels> ComposeAll(const QByteArray& file) {
    FrameStrip strip;
    strip.Load(file);
    strip.LoadRest();
    FrameComposer composer(strip);
    std::vector<Pixels> screens;
    for (int frame = 1; frame <= strip.FrameCount(); ++frame) screens.push_back(Read(composer.Compose(frame)));
    return screens;
}

constexpr unsigned R = kRed, G = kGreen, B = kBlue, W = kWhite, K = kBlack, C = kClear;

struct ComposeCase {
    const char* name;
    QByteArray file;
    std::vector<Pixels> screens;  // one per frame
};

// Screens of 3 x 1 pixels; index 0 red, 1 green, 2 blue, 3 white.
const QByteArray kRedRow = Image(0, 0, 3, 1, {0, 0, 0});

TEST(FrameComposer, LaysFramesAsTheirDisposalAsks) {
    const ComposeCase cases[] = {
        {"Disposal0And1Leave",
         Header(3, 1) + kRedRow + Control(0, 0) + Image(1, 0, 1, 1, {1}) + Control(1, 0) + Image(2, 0, 1, 1, {2}) +
             kTrailer,
         {{R, R, R}, {R, G, R}, {R, G, B}}},
        {"Disposal2ClearsItsRectangle",
         Header(3, 1) + kRedRow + Control(2, 0) + Image(1, 0, 1, 1, {1}) + Image(2, 0, 1, 1, {2}) + kTrailer,
         {{R, R, R}, {R, G, R}, {R, C, B}}},
        {"Disposal3Restores",
         Header(3, 1) + kRedRow + Control(3, 0) + Image(0, 0, 2, 1, {1, 1}) + Control(3, 0) +
             Image(1, 0, 2, 1, {2, 2}) + Image(2, 0, 1, 1, {3}) + kTrailer,
         {{R, R, R}, {G, G, R}, {R, B, B}, {R, R, W}}},
        {"Disposal3RestoresTransparency",
         Header(3, 1) + Control(0, 0, 3) + Image(0, 0, 3, 1, {0, 3, 3}) + Control(3, 0) + Image(1, 0, 1, 1, {1}) +
             Control(0, 0, 0) + Image(2, 0, 1, 1, {2}) + kTrailer,
         {{R, C, C}, {R, G, C}, {R, C, B}}},
        {"FirstFrameWithDisposal3Stays",
         Header(3, 1) + Control(3, 0) + kRedRow + Image(1, 0, 1, 1, {1}) + kTrailer,
         {{R, R, R}, {R, G, R}}},
        {"AllFramesClear",
         Header(3, 1) + Control(2, 0) + Image(0, 0, 2, 1, {0, 0}) + Control(2, 0) + Image(1, 0, 2, 1, {1, 1}) +
             kTrailer,
         {{R, R, C}, {C, G, G}}},
        {"TransparentPixelsShowTheEarlierFrame",
         Header(3, 1) + Control(1, 0) + kRedRow + Control(1, 0, 3) + Image(0, 0, 3, 1, {3, 1, 3}) + Control(1, 0, 3) +
             Image(0, 0, 3, 1, {2, 3, 3}) + kTrailer,
         {{R, R, R}, {R, G, R}, {B, G, R}}},
        // Nothing asks for transparency anywhere: places never painted are black.
        {"OpaqueFramesOnBlack",
         Header(9, 9) + Image(0, 0, 1, 1, {0}) + Image(2, 0, 1, 1, {1}) + kTrailer,
         {{R, K, K}, {R, K, G}}},
        {"SmallFirstFrameAndTransparencyLater",
         Header(9, 9) + Image(0, 0, 1, 1, {0}) + Control(0, 0, 0) + Image(2, 0, 1, 1, {1}) + kTrailer,
         {{R, C, C}, {R, C, G}}},
        {"OneFrameAwayFromTheCorner", Header(9, 9) + Image(2, 0, 1, 1, {1}) + kTrailer, {{C, C, G}}},
        {"LocalTables",
         Header(3, 1) + kRedRow + Image(0, 0, 1, 1, {0}, Bytes({1, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0})) +
             Image(1, 0, 1, 1, {0}, Bytes({9, 8, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0})) + kTrailer,
         {{R, R, R}, {0xFF010203, R, R}, {0xFF010203, 0xFF090807, R}}},
        {"FrameWithoutArea",
         Header(3, 1) + kRedRow + Control(3, 0) + Image(1, 0, 0, 1, {}) + Image(0, 0, 1, 1, {1}) + kTrailer,
         {{R, R, R}, {R, R, R}, {G, R, R}}},
        // Damaged data: what it tells, then index 0.
        {"DataThatEndsEarly", Header(3, 1) + Image(0, 0, 3, 1, {1}) + kTrailer, {{G, R, R}}}};
    for (const ComposeCase& each : cases) EXPECT_EQ(ComposeAll(each.file), each.screens) << each.name;
}

TEST(FrameStrip, DecodesInterlacedRows) {
    // 1 x 11: the rows stand in the file in the order 0 8 4 2 6 10 1 3 5 7 9; each row's index is its number modulo 4.
    std::vector<int> inFile;
    for (const int row : {0, 8, 4, 2, 6, 10, 1, 3, 5, 7, 9}) inFile.push_back(row % 4);
    const auto screens = ComposeAll(Header(1, 11) + Image(0, 0, 1, 11, inFile, {}, true) + kTrailer);
    EXPECT_EQ(screens[0], (Pixels{R, G, B, W, R, G, B, W, R, G, B}));
}

TEST(FrameComposer, AnyOrderGivesTheSameScreens) {
    const QByteArray file = Header(3, 1) + kRedRow + Control(2, 0) + Image(1, 0, 1, 1, {1}) + Control(3, 0) +
                            Image(0, 0, 2, 1, {2, 2}) + Image(2, 0, 1, 1, {3}) + kTrailer;
    const auto expected = ComposeAll(file);
    FrameStrip strip;
    strip.Load(file);
    strip.LoadRest();
    FrameComposer composer(strip);
    for (const int frame : {4, 1, 3, 3, 2, 4, 2, 2, 1}) {
        EXPECT_EQ(Read(composer.Compose(frame)), expected[static_cast<std::size_t>(frame) - 1]) << frame;
    }
    EXPECT_TRUE(composer.Compose(0).isNull());
    EXPECT_TRUE(composer.Compose(5).isNull());
}

TEST(FrameStrip, MirrorsFramesAndPlacesAlsoOfFramesLoadedLater) {
    const QByteArray file = Header(3, 2) + Image(0, 0, 3, 2, {0, 1, 2, 3, 3, 3}) + Image(0, 1, 2, 1, {1, 2}) + kTrailer;
    FrameStrip strip;
    strip.Load(file);
    strip.Mirror(true, false);
    strip.LoadRest();
    strip.Mirror(false, true);
    FrameComposer composer(strip);
    EXPECT_EQ(Read(composer.Compose(1)), (Pixels{W, W, W, B, G, R}));
    EXPECT_EQ(Read(composer.Compose(2)), (Pixels{W, B, G, B, G, R}));
    EXPECT_EQ(strip.Frame(2).Left, 1);
    EXPECT_EQ(strip.Frame(2).Top, 0);
}

TEST(FrameStrip, RefusesAScreenThatWouldTakeTheMachinesMemory) {
    FrameStrip strip;
    EXPECT_EQ(strip.Load(Header(1, 1) + Image(65000, 65000, 1, 1, {1}) + kTrailer), 0);
    // Many huge frames: those beyond the limit stay blank, the first ones are there.
    QByteArray file = Header(1, 1);
    for (int i = 0; i < 12; ++i) file += Image(0, 0, 8000, 8000, {1});
    EXPECT_EQ(strip.Load(file + kTrailer), 12);
    strip.LoadRest();
    EXPECT_FALSE(strip.Indices(8).isNull());
    EXPECT_TRUE(strip.Indices(9).isNull());
}

}  // namespace
}  // namespace kelu
