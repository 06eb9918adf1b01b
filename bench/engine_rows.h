// What the engine benchmark renders, from the catalogue: every effect at its default inputs and with each of its
// options, the dearest inputs, and the effects that have a radius at any radius.
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/image_view.h"
#include "engine/run.h"

namespace kelu::bench {

using Render = std::function<void(const engine::ImageView&, const engine::MutableImageView&, const engine::Run&)>;

struct BenchRow {
    std::string name;
    Render render;
};

/// `render` takes the radius, side, width or length of the effect first, 1 to 100 image pixels.
struct RadiusRow {
    std::string name;
    std::function<void(int, const engine::ImageView&, const engine::MutableImageView&, const engine::Run&)> render;
};

std::vector<BenchRow> DefaultRows();
std::vector<BenchRow> ExtremeRows();
std::vector<RadiusRow> RadiusRows();

}  // namespace kelu::bench
