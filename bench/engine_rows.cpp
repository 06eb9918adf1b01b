// What the engine benchmark renders.
// SPDX-License-Identifier: MIT
#include "bench/engine_rows.h"

#include "engine/antialias.h"
#include "engine/around_point.h"
#include "engine/blobs.h"
#include "engine/blurs.h"
#include "engine/borders.h"
#include "engine/channel_maps.h"
#include "engine/convolution.h"
#include "engine/dither.h"
#include "engine/emboss.h"
#include "engine/extremes.h"
#include "engine/luma_maps.h"
#include "engine/melt.h"
#include "engine/mosaic.h"
#include "engine/neon.h"
#include "engine/noise.h"
#include "engine/oil_painting.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"
#include "engine/sketch.h"
#include "engine/wind.h"

namespace kelu::bench {

using namespace engine;

namespace {

constexpr Color kWhite{255, 255, 255};
constexpr Point kCenter{250, 100};

}  // namespace

std::vector<BenchRow> DefaultRows() {
    return {
        {"1 Grayscale", [](auto& s, auto& t, auto& r) { Grayscale(s, t, 1, r); }},
        {"2 Sepia", [](auto& s, auto& t, auto& r) { Sepia(s, t, 30, r); }},
        {"3 Black & White", [](auto& s, auto& t, auto& r) { BlackWhite(s, t, 160, r); }},
        {"4 B&W Dithered", [](auto& s, auto& t, auto& r) { BlackWhiteDither(s, t, 0, r); }},
        {"5 Noise", [](auto& s, auto& t, auto& r) { Noise(s, t, 50, true, r); }},
        {"6 Antialias", [](auto& s, auto& t, auto& r) { Antialias(s, t, r); }},
        {"7 Blobs", [](auto& s, auto& t, auto& r) { Blobs(s, t, 10, 6, r); }},
        {"8 Blur 1", [](auto& s, auto& t, auto& r) { Blur1(s, t, 4, r); }},
        {"9 Blur 2", [](auto& s, auto& t, auto& r) { Blur2(s, t, kCenter, 4, r); }},
        {"10 Blur 3", [](auto& s, auto& t, auto& r) { Blur3(s, t, kCenter, 4, r); }},
        {"11 Brightness 1", [](auto& s, auto& t, auto& r) { Brightness1(s, t, 35, r); }},
        {"12 Brightness 2", [](auto& s, auto& t, auto& r) { Brightness2(s, t, kCenter, -100, r); }},
        {"13 Contrast", [](auto& s, auto& t, auto& r) { Contrast(s, t, 100, r); }},
        {"14 Color Gradient", [](auto& s, auto& t, auto& r) { ColorGradient(s, t, kCenter, -100, r); }},
        {"15 Color Correction",
         [](auto& s, auto& t, auto& r) {
             ColorCorrection(s, t, {47, 47, 47}, {255, 255, 243}, r);
         }},
        {"16 Color Emboss", [](auto& s, auto& t, auto& r) { ColorEmboss(s, t, 1, r); }},
        {"17 Colorize",
         [](auto& s, auto& t, auto& r) {
             Colorize(s, t, {255, 0, 0}, r);
         }},
        {"18 False Color",
         [](auto& s, auto& t, auto& r) {
             FalseColor(s, t, {20, 20, 0}, {200, 100, 50}, r);
         }},
        {"19 Enhance Edges", [](auto& s, auto& t, auto& r) { EnhanceEdges(s, t, r); }},
        {"20 Emboss", [](auto& s, auto& t, auto& r) { Emboss(s, t, 1, 2, 127, r); }},
        {"21 Erode Border", [](auto& s, auto& t, auto& r) { ErodeBorder(s, t, 20, kWhite, r); }},
        {"22 Explode", [](auto& s, auto& t, auto& r) { Explode(s, t, kCenter, 10, r); }},
        {"23 Fade Borders", [](auto& s, auto& t, auto& r) { FadeBorders(s, t, 30, kWhite, r); }},
        {"24 Fish Eye", [](auto& s, auto& t, auto& r) { FishEye(s, t, kWhite, r); }},
        {"25 High Pass", [](auto& s, auto& t, auto& r) { HighPass(s, t, 0, r); }},
        {"26 Implode", [](auto& s, auto& t, auto& r) { Implode(s, t, kCenter, 10, {}, r); }},
        {"27 Irregular Borders", [](auto& s, auto& t, auto& r) { IrregularBorders(s, t, 20, kWhite, r); }},
        {"28 Maximum, disc", [](auto& s, auto& t, auto& r) { Maximum(s, t, 0, 30, r); }},
        {"28 Maximum, square", [](auto& s, auto& t, auto& r) { Maximum(s, t, 1, 30, r); }},
        {"29 Minimum, disc", [](auto& s, auto& t, auto& r) { Minimum(s, t, 0, 30, r); }},
        {"29 Minimum, square", [](auto& s, auto& t, auto& r) { Minimum(s, t, 1, 30, r); }},
        {"30 Melt", [](auto& s, auto& t, auto& r) { Melt(s, t, r); }},
        {"31 Mosaic", [](auto& s, auto& t, auto& r) { Mosaic(s, t, 10, 10, r); }},
        {"32 Negative", [](auto& s, auto& t, auto& r) { Negative(s, t, true, true, true, r); }},
        {"33 Oil Painting", [](auto& s, auto& t, auto& r) { OilPainting(s, t, 5, r); }},
        {"34 Posterize", [](auto& s, auto& t, auto& r) { Posterize(s, t, 2, 2, 2, r); }},
        {"35 Reverse", [](auto& s, auto& t, auto& r) { Reverse(s, t, r); }},
        {"36 Saturation 1", [](auto& s, auto& t, auto& r) { Saturation1(s, t, 100, r); }},
        {"37 Saturation 2", [](auto& s, auto& t, auto& r) { Saturation2(s, t, kCenter, -100, r); }},
        {"38 Scramble", [](auto& s, auto& t, auto& r) { Scramble(s, t, 100, 50, r); }},
        {"39 Solarize", [](auto& s, auto& t, auto& r) { Solarize(s, t, 140, 140, 140, true, r); }},
        {"40 Special Filter", [](auto& s, auto& t, auto& r) { SpecialFilter(s, t, 4, 127, r); }},
        {"41 Sketch", [](auto& s, auto& t, auto& r) { Sketch(s, t, r); }},
        {"42 Spray", [](auto& s, auto& t, auto& r) { Spray(s, t, 15, r); }},
        {"43 Swap Colors", [](auto& s, auto& t, auto& r) { SwapColors(s, t, 2, r); }},
        {"44 Tile", [](auto& s, auto& t, auto& r) { Tile(s, t, 100, 40, r); }},
        {"45 Tint",
         [](auto& s, auto& t, auto& r) {
             Tint(s, t, {255, 100, 255}, r);
         }},
        {"46 Freeze",
         [](auto& s, auto& t, auto& r) {
             Freeze(s, t, {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, r);
         }},
        {"47 Wind", [](auto& s, auto& t, auto& r) { Wind(s, t, 25, -10, r); }},
        {"48 Neon", [](auto& s, auto& t, auto& r) { Neon(s, t, r); }},
    };
}

std::vector<BenchRow> ExtremeRows() {
    return {
        {"7 Blobs, 1 1", [](auto& s, auto& t, auto& r) { Blobs(s, t, 1, 1, r); }},
        {"8 Blur 1, 100", [](auto& s, auto& t, auto& r) { Blur1(s, t, 100, r); }},
        {"9 Blur 2, 100", [](auto& s, auto& t, auto& r) { Blur2(s, t, kCenter, 100, r); }},
        {"10 Blur 3, 100", [](auto& s, auto& t, auto& r) { Blur3(s, t, kCenter, 100, r); }},
        {"38 Scramble, 1", [](auto& s, auto& t, auto& r) { Scramble(s, t, 1, 100, r); }},
    };
}

std::vector<RadiusRow> RadiusRows() {
    return {
        {"7 Blobs", [](int n, auto& s, auto& t, auto& r) { Blobs(s, t, n, 6, r); }},
        {"8 Blur 1", [](int n, auto& s, auto& t, auto& r) { Blur1(s, t, n, r); }},
        {"9 Blur 2", [](int n, auto& s, auto& t, auto& r) { Blur2(s, t, kCenter, n, r); }},
        {"10 Blur 3", [](int n, auto& s, auto& t, auto& r) { Blur3(s, t, kCenter, n, r); }},
        {"21 Erode Border", [](int n, auto& s, auto& t, auto& r) { ErodeBorder(s, t, n, kWhite, r); }},
        {"23 Fade Borders", [](int n, auto& s, auto& t, auto& r) { FadeBorders(s, t, n, kWhite, r); }},
        {"27 Irregular Borders", [](int n, auto& s, auto& t, auto& r) { IrregularBorders(s, t, n, kWhite, r); }},
        {"28 Maximum, disc", [](int n, auto& s, auto& t, auto& r) { Maximum(s, t, 0, n, r); }},
        {"28 Maximum, square", [](int n, auto& s, auto& t, auto& r) { Maximum(s, t, 1, n, r); }},
        {"29 Minimum, disc", [](int n, auto& s, auto& t, auto& r) { Minimum(s, t, 0, n, r); }},
        {"29 Minimum, square", [](int n, auto& s, auto& t, auto& r) { Minimum(s, t, 1, n, r); }},
        {"31 Mosaic", [](int n, auto& s, auto& t, auto& r) { Mosaic(s, t, n, n, r); }},
        {"33 Oil Painting", [](int n, auto& s, auto& t, auto& r) { OilPainting(s, t, n, r); }},
        {"38 Scramble", [](int n, auto& s, auto& t, auto& r) { Scramble(s, t, n, 50, r); }},
        {"42 Spray", [](int n, auto& s, auto& t, auto& r) { Spray(s, t, n, r); }},
        {"44 Tile", [](int n, auto& s, auto& t, auto& r) { Tile(s, t, n, 40, r); }},
        {"47 Wind", [](int n, auto& s, auto& t, auto& r) { Wind(s, t, n, -n / 2, r); }},
    };
}

}  // namespace kelu::bench
