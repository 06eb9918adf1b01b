// Shapes: what moves pixels to other places.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/melt.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"

namespace kelu {
namespace {

using namespace family;

// Slider and picker move up to make room for the coordinates, and stay there for whatever is chosen next.
constexpr PanelTops kRaisedTops{.sldValue1 = 1000, .cPicker1 = 1400};

// clang-format off
constexpr Effect kRows[] = {
    {.number = 22, .listText = "Explode", .helpPage = "explode.html",
     .sliders = {{{"Amount", 1, 100, 10, Plain(40)}}}, .coordinates = kPoint,
     .render = [](Source s, Target t, In in, How run) { engine::Explode(s, t, At(in), in.slider[0], run); }},
    {.number = 24, .listText = "Fish Eye", .helpPage = "fisheye.html",
     .color1 = {"Background Color", PickerColor(255, 255, 255)},
     .render = [](Source s, Target t, In in, How run) { engine::FishEye(s, t, First(in), run); }},
    {.number = 26, .listText = "Implode", .helpPage = "implode.html",
     .sliders = {{{"Amount", 1, 100, 10, Plain(60)}}}, .coordinates = Coordinates::Shown,
     .color1 = {"Background Color", PickerColor(0, 0, 0)}, .tops = kRaisedTops,
     .render = [](Source s, Target t, In in, How run) { engine::Implode(s, t, At(in), in.slider[0], First(in), run); }},
    {.number = 30, .listText = "Melt", .helpPage = "melt.html",
     .render = [](Source s, Target t, In, How run) { engine::Melt(s, t, run); }},
    {.number = 35, .listText = "Reverse", .helpPage = "reverse.html",
     .render = [](Source s, Target t, In, How run) { engine::Reverse(s, t, run); }},
    {.number = 38, .listText = "Scramble", .helpPage = "scramble.html",
     .sliders = {{{"Square Size", 0, 100, 100, Pixels(16)}, {"Share Moved", 0, 100, 50}}},
     .render = [](Source s, Target t, In in, How run) { engine::Scramble(s, t, in.slider[0], in.slider[1], run); }},
    {.number = 44, .listText = "Tile", .helpPage = "tile.html",
     .sliders = {{{"Tile Size", 1, 100, 100, Pixels(16)}, {"Displacement", 1, 100, 40}}},
     .render = [](Source s, Target t, In in, How run) { engine::Tile(s, t, in.slider[0], in.slider[1], run); }},
};
// clang-format on

}  // namespace

EffectFamily Shapes() { return {"Shapes", kRows}; }

}  // namespace kelu
