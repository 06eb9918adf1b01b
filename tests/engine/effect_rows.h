// The table of effects under test. A row is one effect with one choice of inputs, beside the plain scalar definition
// that it must agree with. To add rows: a file with a function, its name here and in effect_rows.cpp.
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "engine/image_view.h"
#include "engine/run.h"
#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {

using Render = std::function<void(const engine::ImageView&, const engine::MutableImageView&, const engine::Run&)>;

/// Fills `expected`, which has the size of `source`.
using Definition = std::function<void(const Picture& source, Picture& expected)>;

struct EffectRow {
    std::string name;  // letters, digits and underscores: it becomes part of a test's name
    Render render;
    Definition definition;  // empty where tests of its own, or the sums of the catalogue, hold the effect
    int tolerance = 0;      // levels a channel
    bool keepsAlpha = true;
};

inline std::ostream& operator<<(std::ostream& out, const EffectRow& row) { return out << row.name; }

/// A definition of one pixel: red, green and blue as real numbers; rounding, clamping and alpha are done here.
using ColorDefinition = std::function<std::array<double, 3>(const Picture& source, int x, int y)>;
Definition EachPixel(ColorDefinition color);

/// A kernel with its inputs.
template <auto kernel, class... Inputs>
Render With(Inputs... inputs) {
    return [=](auto& source, auto& target, auto& run) { kernel(source, target, inputs..., run); };
}

/// The same effect with lengths `scale` times as long.
inline Render Far(Render effect, float scale) {
    return [=](auto& source, auto& target, auto& run) {
        engine::Run scaled = run;
        scaled.lengthScale = scale;
        effect(source, target, scaled);
    };
}

std::vector<EffectRow> AroundPointRows();
std::vector<EffectRow> BorderRows();
std::vector<EffectRow> ChannelMapRows();
std::vector<EffectRow> LumaMapRows();
std::vector<EffectRow> NeighbourhoodRows();
std::vector<EffectRow> NeutralRows();  // inputs that mean nothing
std::vector<EffectRow> RandomRows();
std::vector<EffectRow> ScatterRows();
std::vector<EffectRow> WarpRows();
std::vector<EffectRow> WindowRows();

std::vector<EffectRow> AllRows();

}  // namespace kelu::engine_test
