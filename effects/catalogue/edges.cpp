// Edges and Relief: what looks at edges: smoothing, reliefs, filters of three by three.
// SPDX-License-Identifier: MIT
#include "effects/catalogue/family.h"
#include "engine/antialias.h"
#include "engine/convolution.h"
#include "engine/emboss.h"

namespace kelu {
namespace {

using namespace family;

constexpr const char* kHighPassNames[] = {"High Pass 1", "High Pass 2", "High Pass 3"};
constexpr const char* kSpecialFilterNames[] = {"Gradient East",
                                               "Gradient North",
                                               "Gradient South",
                                               "Gradient West",
                                               "Laplace 1",
                                               "Laplace 2",
                                               "Laplace 3",
                                               "Laplace Diagonal",
                                               "Laplace Horizontal",
                                               "Laplace Vertical",
                                               "Prewitt Horizontal",
                                               "Prewitt Vertical",
                                               "Shift & Difference Diagonal",
                                               "Shift & Difference Horizontal",
                                               "Shift & Difference Vertical",
                                               "Sobel Horizontal",
                                               "Sobel Vertical"};

constexpr EffectChoice kHighPass{Kind::List, kHighPassNames, 1, &SharedState::HighPassSelect};
constexpr EffectChoice kSpecialFilter{Kind::List, kSpecialFilterNames, 5, &SharedState::SPFilterSelect};
constexpr EffectChoice kCompass{Kind::Compass, kCompassTips, kDefaultDirection, &SharedState::CompassDirection};

// The buttons are numbered by rows from north-west, the engine counts clockwise from north.
int Clockwise(In in) {
    constexpr int kEngineValue[] = {7, 0, 1, 6, 2, 5, 4, 3};
    return kEngineValue[in.choice - 1];
}

// clang-format off
constexpr Effect kRows[] = {
    {.number = 6, .listText = "Antialias", .helpPage = "antialias.html",
     .render = [](Source s, Target t, In, How run) { engine::Antialias(s, t, run); }},
    {.number = 16, .listText = "Color Emboss", .helpPage = "coloremboss.html",
     .choice = kCompass, .tops = {.pagerCompass = 1200},
     .render = [](Source s, Target t, In in, How run) { engine::ColorEmboss(s, t, Clockwise(in), run); }},
    {.number = 19, .listText = "Enhance Edges", .panelTitle = "Enhance Edge", .helpPage = "enhanceedge.html",
     .render = [](Source s, Target t, In, How run) { engine::EnhanceEdges(s, t, run); }},
    {.number = 20, .listText = "Emboss", .hint = "Direction && Intensity", .helpPage = "emboss.html",
     .sliders = {{{"Intensity", 1, 10, 2}, {"Gray Level", 0, 255, 127}}},
     .choice = kCompass, .tops = {.pagerCompass = 2130},
     .render = [](Source s, Target t, In in, How run) {
         engine::Emboss(s, t, Clockwise(in), in.slider[0], in.slider[1], run); }},
    {.number = 25, .listText = "High Pass", .helpPage = "highpass.html",
     .choice = kHighPass, .tops = {.lstValue = 1200},
     .render = [](Source s, Target t, In in, How run) { engine::HighPass(s, t, in.choice - 1, run); }},
    {.number = 40, .listText = "Special Filter", .helpPage = "spfilter.html",
     .sliders = {{{"Base Level", 0, 255, 127}}}, .choice = kSpecialFilter,
     .tops = {.sldValue1 = 1000, .lstValue = 1500},
     .render = [](Source s, Target t, In in, How run) {
         engine::SpecialFilter(s, t, in.choice - 1, in.slider[0], run); }},
    // Nine weights row by row, their divisor, an offset.
    {.number = 46, .listText = "Freeze", .helpPage = "freeze.html",
     .render = [](Source s, Target t, In, How run) { engine::Freeze(s, t, {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, run); }},
};
// clang-format on

}  // namespace

EffectFamily EdgesAndRelief() { return {"Edges and Relief", kRows}; }

}  // namespace kelu
