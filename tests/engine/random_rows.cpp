// Rows of the effects that have no definition pixel by pixel: Noise and the dither. Their own tests stand in
// noise_test.cpp and dither_test.cpp.
// SPDX-License-Identifier: MIT
#include "engine/dither.h"
#include "engine/noise.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {

std::vector<EffectRow> RandomRows() {
    const auto threshold = EachPixel([](const Picture& source, int x, int y) -> std::array<double, 3> {
        const double value = Luma(source.At(x, y)) >= 128 ? 255 : 0;
        return {value, value, value};
    });
    return {
        {"BlackWhiteDither_0", [](auto& s, auto& t, auto& run) { engine::BlackWhiteDither(s, t, 0, run); }, {}},
        {"BlackWhiteDither_40", [](auto& s, auto& t, auto& run) { engine::BlackWhiteDither(s, t, 40, run); }, {}},
        {"BlackWhiteDither_100", [](auto& s, auto& t, auto& run) { engine::BlackWhiteDither(s, t, 100, run); },
         threshold},
        {"Noise_colored", [](auto& s, auto& t, auto& run) { engine::Noise(s, t, 50, true, run); }, {}},
        {"Noise_gray", [](auto& s, auto& t, auto& run) { engine::Noise(s, t, 100, false, run); }, {}},
        {"Noise_neutral", [](auto& s, auto& t, auto& run) { engine::Noise(s, t, 0, true, run); }, Unchanged()},
    };
}

}  // namespace kelu::engine_test
