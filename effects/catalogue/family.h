// What the files of rows share: short names for a row's cells. A family is the rows of one kind of effect.
// SPDX-License-Identifier: MIT
#pragma once

#include "effects/catalogue/catalogue.h"
#include "engine/distance_weight.h"
#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu {

namespace family {

using Source = const engine::ImageView&;
using Target = const engine::MutableImageView&;
using In = const EffectInputs&;
using How = const engine::Run&;

using Kind = EffectChoice::Kind;
constexpr auto kPoint = Coordinates::ShownAndReset;

/// What a slider shows in a preview, in its own unit.
constexpr EffectPreview Plain(int value) { return {EffectPreview::Kind::Plain, value}; }
/// The same for a slider whose unit is the image pixel: at least so many pixels of the preview.
constexpr EffectPreview Pixels(int value) { return {EffectPreview::Kind::Pixels, value}; }

inline engine::Point At(In in) { return {in.x, in.y}; }
inline engine::Color First(In in) { return {in.color1.red, in.color1.green, in.color1.blue}; }
inline engine::Color Second(In in) { return {in.color2.red, in.color2.green, in.color2.blue}; }

}  // namespace family

// One for each file of rows.
EffectFamily Colors();
EffectFamily LightAndGrain();
EffectFamily Blur();
EffectFamily EdgesAndRelief();
EffectFamily Painting();
EffectFamily Shapes();
EffectFamily Borders();

}  // namespace kelu
