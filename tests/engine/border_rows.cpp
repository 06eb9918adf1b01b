// Plain definitions of the borders.
// SPDX-License-Identifier: MIT
#include "engine/borders.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

// `color` over a part of a pixel, its alpha included.
Rgba Covered(const Rgba& p, Color color, double part) {
    const double left = p.alpha / 255.0 * (1 - part), whole = part + left, share = whole > 0 ? part / whole : 0;
    const auto mix = [=](int own, int over) { return Rounded(own + (over - own) * share); };
    return {mix(p.red, color.red), mix(p.green, color.green), mix(p.blue, color.blue), Rounded(255 * whole)};
}

// `at(source, x, y)` is the result's pixel.
template <class At>
EffectRow BorderRow(const std::string& name, Render render, At at) {
    return {name, std::move(render),
            [=](const Picture& source, Picture& expected) {
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) expected.Set(x, y, at(source, x, y));
            },
            2, false};
}

EffectRow FadeRow(int depth, Color color) {
    return BorderRow(
        "FadeBorders_" + std::to_string(depth),
        [=](auto& s, auto& t, auto& run) { FadeBorders(s, t, depth, color, run); },
        [=](const Picture& source, int x, int y) {
            const auto beyond = [=](int at, int size) {
                return 1 - std::min(1.0, std::min(at, size - 1 - at) / static_cast<double>(depth));
            };
            const double t = std::max(0.0, 1 - std::hypot(beyond(x, source.Width()), beyond(y, source.Height())));
            return Covered(source.At(x, y), color, 1 - t * t * (3 - 2 * t));
        });
}

}  // namespace

std::vector<EffectRow> BorderRows() {
    return {
        FadeRow(1, {255, 255, 255}),
        FadeRow(30, {200, 100, 0}),
        FadeRow(255, {0, 0, 255}),
    };
}

}  // namespace kelu::engine_test
