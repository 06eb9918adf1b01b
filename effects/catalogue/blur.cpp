// Blur: what blurs and smears.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/blurs.h"
#include "engine/wind.h"

namespace kelu {
namespace {

using namespace family;

// clang-format off
constexpr Effect kRows[] = {
    {.number = 8, .listText = "Blur 1", .helpPage = "blur1.html",
     .sliders = {{{"Radius", 1, 100, 4, Pixels(3)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Blur1(s, t, in.slider[0], run); }},
    {.number = 9, .listText = "Blur 2", .helpPage = "blur2.html",
     .sliders = {{{"Length", 1, 100, 4, Plain(40)}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) { engine::Blur2(s, t, At(in), in.slider[0], run); }},
    {.number = 10, .listText = "Blur 3", .helpPage = "blur3.html",
     .sliders = {{{"Angle", 1, 100, 4, Plain(40)}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) { engine::Blur3(s, t, At(in), in.slider[0], run); }},
    {.number = 47, .listText = "Wind", .helpPage = "wind.html",
     .sliders = {{{"Wind to the Right", -100, 100, 25, Pixels(28)}, {"Wind Downward", -100, 100, -10, Pixels(-10)}}},
     .render = [](Source s, Target t, In in, How run) { engine::Wind(s, t, in.slider[0], in.slider[1], run); }},
};
// clang-format on

}  // namespace

EffectFamily Blur() { return {"Blur", kRows}; }

}  // namespace kelu
