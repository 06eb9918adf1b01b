// Plain definitions of the borders.
// SPDX-License-Identifier: MIT
#include "effects/engine/borders.h"

#include <algorithm>

#include "tests/effects/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

int EdgeDistance(const Picture& source, int x, int y) {
    return std::min({x, y, source.Width() - 1 - x, source.Height() - 1 - y});
}

EffectRow FadeRow(int depth, Color color) {
    return {"FadeBorders_" + std::to_string(depth),
            [=](auto& s, auto& t, auto& run) { FadeBorders(s, t, depth, color, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const double t = std::min(1.0, EdgeDistance(source, x, y) / static_cast<double>(depth));
                const double clear = t * t * (3 - 2 * t);
                const auto mix = [=](int c, int from) { return from + (c - from) * clear; };
                return {mix(p.red, color.red), mix(p.green, color.green), mix(p.blue, color.blue)};
            }),
            1};
}

EffectRow Neutral(const std::string& name, Render render) {
    return {name + "_neutral", std::move(render), Unchanged()};
}

}  // namespace

std::vector<EffectRow> BorderRows() {
    return {
        FadeRow(1, {255, 255, 255}),
        FadeRow(30, {200, 100, 0}),
        FadeRow(255, {0, 0, 255}),
        Neutral("FadeBorders",
                [](auto& s, auto& t, auto& run) {
                    FadeBorders(s, t, 0, {255, 255, 255}, run);
                }),
    };
}

}  // namespace kelu::engine_test
