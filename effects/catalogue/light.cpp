// Light and Grain: brightness, contrast and grain.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/around_point.h"
#include "engine/channel_maps.h"
#include "engine/noise.h"

namespace kelu {
namespace {

using namespace family;

// clang-format off
constexpr Effect kRows[] = {
    {.number = 5, .listText = "Noise", .helpPage = "noise.html",
     .sliders = {{{"Amount", 2, 100, 50}}},
     .render = [](Source s, Target t, In in, How run) { engine::Noise(s, t, in.slider[0], true, run); }},
    {.number = 11, .listText = "Brightness 1", .helpPage = "brightness1.html",
     .sliders = {{{"Brightness", -100, 100, 35}}},
     .render = [](Source s, Target t, In in, How run) { engine::Brightness1(s, t, in.slider[0], run); }},
    // The horizontal unit is four pixels here, and here only.
    {.number = 12, .listText = "Brightness 2", .helpPage = "brightness2.html",
     .sliders = {{{"Brightness", -100, 100, -100}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) {
         engine::Brightness2(s, t, {in.x / 4 * 4, in.y}, in.slider[0], run); }},
    {.number = 13, .listText = "Contrast", .helpPage = "contrast.html",
     .sliders = {{{"Contrast", -100, 100, 100}}},
     .render = [](Source s, Target t, In in, How run) { engine::Contrast(s, t, in.slider[0], run); }},
};
// clang-format on

}  // namespace

EffectFamily LightAndGrain() { return {"Light and Grain", kRows}; }

}  // namespace kelu
