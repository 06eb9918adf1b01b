// Borders: what works inward from the edge of the picture.
// SPDX-License-Identifier: MIT
#include "engine/borders.h"
#include "effects/catalogue/family.h"

namespace kelu {
namespace {

using namespace family;

// Slider and picker move up to make room for the coordinates, and stay there for whatever is chosen next.
constexpr PanelTops kRaisedTops{.sldValue1 = 1000, .cPicker1 = 1400};

// clang-format off
constexpr Effect kRows[] = {
    {.number = 21, .listText = "Erode Border", .buttonTip = "Erode Borders", .panelTitle = "Eroded Borders",
     .helpPage = "erodeborder.html",
     .sliders = {{{"Depth", 0, 255, 20, Pixels(16)}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)},
     .render = [](Source s, Target t, In in, How run) { engine::ErodeBorder(s, t, in.slider[0], First(in), run); }},
    {.number = 23, .listText = "Fade Borders", .panelTitle = "Faded Borders", .helpPage = "fadeborder.html",
     .sliders = {{{"Width", 0, 255, 30, Pixels(16)}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)},
     .render = [](Source s, Target t, In in, How run) { engine::FadeBorders(s, t, in.slider[0], First(in), run); }},
    {.number = 27, .listText = "Irregular Borders", .helpPage = "irrborders.html",
     .sliders = {{{"Width", 0, 200, 20, Pixels(12)}}}, .color1 = {"Border Color", PickerColor(255, 255, 255)},
     .tops = kRaisedTops,
     .render = [](Source s, Target t, In in, How run) {
         engine::IrregularBorders(s, t, in.slider[0], First(in), run); }},
};
// clang-format on

}  // namespace

EffectFamily Borders() { return {"Borders", kRows}; }

}  // namespace kelu
