// Colors: what changes colours pixel by pixel.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/around_point.h"
#include "engine/channel_maps.h"
#include "engine/dither.h"
#include "engine/luma_maps.h"

namespace kelu {
namespace {

using namespace family;

constexpr const char* kGrayNames[] = {"Proportional", "Weighted"};
constexpr const char* kSwapNames[] = {"Red - Green", "Red - Blue", "Green - Blue"};

constexpr EffectChoice kGray{Kind::Options, kGrayNames, 1, &SharedState::GraySelect};
constexpr EffectChoice kSwapChannels{Kind::List, kSwapNames, 1, &SharedState::SwapChannelsSelect};

constexpr PanelTops kGrayTops{.optGS1 = 1200, .optGS2 = 1440, .lblGS0 = 1215, .lblGS1 = 1470};

// clang-format off
constexpr Effect kRows[] = {
    {.number = 1, .listText = "Grayscale", .helpPage = "grayscale.html",
     .choice = kGray, .tops = kGrayTops,
     .render = [](Source s, Target t, In in, How run) { engine::Grayscale(s, t, in.choice - 1, run); }},
    {.number = 2, .listText = "Sepia", .helpPage = "sepia.html",
     .sliders = {{{"Strength", 0, 100, 30, Plain(40)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Sepia(s, t, in.slider[0], run); }},
    {.number = 3, .listText = "Black & White", .buttonTip = "Black && White", .panelTitle = "Black && White",
     .helpPage = "bw.html",
     .sliders = {{{"Threshold", 0, 255, 160, Plain(110)}}},
     .render = [](Source s, Target t, In in, How run) { engine::BlackWhite(s, t, in.slider[0], run); }},
    {.number = 4, .listText = "B&W Dithered", .buttonTip = "Black && White Dithered",
     .panelTitle = "Black && White Dithered", .helpPage = "bwd.html",
     .sliders = {{{"Hardness", 0, 100, 0}}},
     .render = [](Source s, Target t, In in, How run) { engine::BlackWhiteDither(s, t, in.slider[0], run); }},
    {.number = 14, .listText = "Color Gradient", .helpPage = "colorgradient.html",
     .sliders = {{{"Strength", -100, 100, -100}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) { engine::ColorGradient(s, t, At(in), in.slider[0], run); }},
    {.number = 15, .listText = "Color Correction", .hint = "Select Colors", .helpPage = "colorcorrection.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Black Point", PickerColor(47, 47, 47)}, .color2 = {"White Point", PickerColor(255, 255, 243)},
     .render = [](Source s, Target t, In in, How run) { engine::ColorCorrection(s, t, First(in), Second(in), run); }},
    {.number = 17, .listText = "Colorize", .hint = "Select Colors", .helpPage = "colorize.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Color", PickerColor(255, 0, 0)},
     .render = [](Source s, Target t, In in, How run) { engine::Colorize(s, t, First(in), run); }},
    {.number = 18, .listText = "False Color", .hint = "Select Colors", .helpPage = "falsecolor.html",
     .coordinates = Coordinates::HiddenAndReset,
     .color1 = {"Dark Color", PickerColor(20, 20, 0)}, .color2 = {"Light Color", PickerColor(200, 100, 50)},
     .render = [](Source s, Target t, In in, How run) { engine::FalseColor(s, t, First(in), Second(in), run); }},
    {.number = 32, .listText = "Negative", .helpPage = "negative.html",
     .render = [](Source s, Target t, In, How run) { engine::Negative(s, t, true, true, true, run); }},
    {.number = 34, .listText = "Posterize", .helpPage = "posterize.html",
     .sliders = {{{"Red Bits", 1, 8, 2}, {"Green Bits", 1, 8, 2}, {"Blue Bits", 1, 8, 2}}},
     .render = [](Source s, Target t, In in, How run) {
         engine::Posterize(s, t, in.slider[0], in.slider[1], in.slider[2], run); }},
    {.number = 36, .listText = "Saturation 1", .helpPage = "saturation1.html",
     .sliders = {{{"Saturation", -100, 100, 100}}},
     .render = [](Source s, Target t, In in, How run) { engine::Saturation1(s, t, in.slider[0], run); }},
    {.number = 37, .listText = "Saturation 2", .helpPage = "saturation2.html",
     .sliders = {{{"Saturation", -100, 100, -100}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) { engine::Saturation2(s, t, At(in), in.slider[0], run); }},
    {.number = 39, .listText = "Solarize", .helpPage = "solarize.html",
     .sliders = {{{"Red Threshold", 0, 255, 140}, {"Green Threshold", 0, 255, 140}, {"Blue Threshold", 0, 255, 140}}},
     .render = [](Source s, Target t, In in, How run) {
         engine::Solarize(s, t, in.slider[0], in.slider[1], in.slider[2], true, run); }},
    // The engine numbers the pairs the other way round.
    {.number = 43, .listText = "Swap Colors", .helpPage = "swapcolors.html",
     .choice = kSwapChannels, .tops = {.lstValue = 1200},
     .render = [](Source s, Target t, In in, How run) { engine::SwapColors(s, t, 3 - in.choice, run); }},
    {.number = 45, .listText = "Tint", .hint = "Select a Color", .helpPage = "tint.html",
     .coordinates = Coordinates::HiddenAndReset, .color1 = {"Tint Color", PickerColor(255, 100, 255)},
     .render = [](Source s, Target t, In in, How run) { engine::Tint(s, t, First(in), run); }},
};
// clang-format on

}  // namespace

EffectFamily Colors() { return {"Colors", kRows}; }

}  // namespace kelu
