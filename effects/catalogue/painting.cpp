// Painting: what makes a painting of a photograph.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/blobs.h"
#include "engine/extremes.h"
#include "engine/mosaic.h"
#include "engine/neon.h"
#include "engine/oil_painting.h"
#include "engine/rearrange.h"
#include "engine/sketch.h"

namespace kelu {
namespace {

using namespace family;

constexpr const char* kWindowNames[] = {"Circle", "Square"};

constexpr EffectChoice kMaximumWindow{Kind::Options, kWindowNames, 1, &SharedState::MaximumSelect};
constexpr EffectChoice kMinimumWindow{Kind::Options, kWindowNames, 1, &SharedState::MinimumSelect};

constexpr PanelTops kWindowTops{.optGS1 = 1720, .optGS2 = 2000, .lblGS0 = 1770, .lblGS1 = 2040};

// clang-format off
constexpr Effect kRows[] = {
    {.number = 7, .listText = "Blobs", .helpPage = "blobs.html",
     .sliders = {{{"Radius", 1, 100, 10, Pixels(5)}, {"Spacing", 1, 100, 6, Pixels(4)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Blobs(s, t, in.slider[0], in.slider[1], run); }},
    {.number = 28, .listText = "Maximum", .helpPage = "maximum.html",
     .sliders = {{{"Radius", 1, 100, 30, Pixels(3)}}}, .choice = kMaximumWindow, .tops = kWindowTops,
     .render = [](Source s, Target t, In in, How run) { engine::Maximum(s, t, in.choice - 1, in.slider[0], run); }},
    {.number = 29, .listText = "Minimum", .buttonTip = "Minmum", .helpPage = "minimum.html",
     .sliders = {{{"Radius", 1, 100, 30, Pixels(3)}}}, .choice = kMinimumWindow, .tops = kWindowTops,
     .render = [](Source s, Target t, In in, How run) { engine::Minimum(s, t, in.choice - 1, in.slider[0], run); }},
    {.number = 31, .listText = "Mosaic", .helpPage = "mosaic.html",
     .sliders = {{{"Block Width", 1, 100, 10, Pixels(6)}, {"Block Height", 1, 100, 10, Pixels(6)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Mosaic(s, t, in.slider[0], in.slider[1], run); }},
    {.number = 33, .listText = "Oil Painting", .helpPage = "oilpainting.html",
     .sliders = {{{"Radius", 1, 100, 5, Pixels(3)}}},
     .render = [](Source s, Target t, In in, How run) { engine::OilPainting(s, t, in.slider[0], run); }},
    {.number = 41, .listText = "Sketch", .helpPage = "sketch.html",
     .render = [](Source s, Target t, In, How run) { engine::Sketch(s, t, run); }},
    {.number = 42, .listText = "Spray", .helpPage = "spray.html",
     .sliders = {{{"Radius", 2, 100, 15, Pixels(5)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Spray(s, t, in.slider[0], run); }},
    // The pen renders it in place.
    {.number = 48, .listText = "Neon", .helpPage = "neon.html",
     .fills = Fills::Pen,
     .render = [](Source s, Target t, In, How run) { engine::Neon(s, t, run); }},
};
// clang-format on

}  // namespace

EffectFamily Painting() { return {"Painting", kRows}; }

}  // namespace kelu
