// Plain definitions of the effects around a point.
// SPDX-License-Identifier: MIT
#include "effects/engine/around_point.h"

#include <algorithm>
#include <cmath>

#include "tests/effects/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

// 0 at the point, 1 at the corner that is farthest from it.
double Weight(const Picture& source, Point at, int x, int y) {
    double farthest = 0;
    for (const int cornerX : {0, source.Width() - 1})
        for (const int cornerY : {0, source.Height() - 1})
            farthest = std::max(farthest, std::hypot(cornerX - at.x, cornerY - at.y));
    const double t = farthest > 0 ? std::hypot(x - at.x, y - at.y) / farthest : 0;
    return t * t * (3 - 2 * t);
}

EffectRow Brightness2Row(const std::string& name, Point at, int amount) {
    return {"Brightness2_" + name, [=](auto& s, auto& t, auto& run) { Brightness2(s, t, at, amount, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const double change = 2.55 * amount * Weight(source, at, x, y);
                return {p.red + change, p.green + change, p.blue + change};
            }),
            1};
}

}  // namespace

std::vector<EffectRow> AroundPointRows() {
    EffectRow neutral = Brightness2Row("neutral", {10, 10}, 0);
    neutral.definition = Unchanged();
    neutral.tolerance = 0;
    return {
        neutral,
        Brightness2Row("spotlight", {62, 100}, -100),
        Brightness2Row("brighter", {20, 10}, 80),
        Brightness2Row("outside", {999, 999}, 100),
        Brightness2Row("far_outside", {-100000, 40}, -60),
    };
}

}  // namespace kelu::engine_test
