// Rows without a definition pixel by pixel: tests of their own stand beside this file, and what is drawn freely is held
// by the sums of the catalogue. And the inputs that mean nothing.
// SPDX-License-Identifier: MIT
#include "engine/around_point.h"
#include "engine/blurs.h"
#include "engine/borders.h"
#include "engine/channel_maps.h"
#include "engine/convolution.h"
#include "engine/dither.h"
#include "engine/extremes.h"
#include "engine/mosaic.h"
#include "engine/neon.h"
#include "engine/noise.h"
#include "engine/oil_painting.h"
#include "engine/radial_warps.h"
#include "engine/rearrange.h"
#include "engine/sketch.h"
#include "engine/wind.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {

using namespace engine;

std::vector<EffectRow> RandomRows() {
    const auto threshold = EachPixel([](const Picture& source, int x, int y) -> std::array<double, 3> {
        const double value = Luma(source.At(x, y)) >= 128 ? 255 : 0;
        return {value, value, value};
    });
    const Render frozen = [](auto& s, auto& t, auto& run) { Freeze(s, t, {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, run); };
    const Color white{255, 255, 255};
    return {
        {"BlackWhiteDither_0", With<BlackWhiteDither>(0), {}},
        {"BlackWhiteDither_40", With<BlackWhiteDither>(40), {}},
        {"BlackWhiteDither_100", With<BlackWhiteDither>(100), threshold},
        {"Noise_colored", With<engine::Noise>(50, true), {}},
        {"Noise_gray", With<engine::Noise>(100, false), {}},
        {"Blur2_4", With<Blur2>(Point{250, 100}, 4), {}, 0, false},
        {"Blur2_100", With<Blur2>(Point{20, 999}, 100), {}, 0, false},
        {"Blur3_100", With<Blur3>(Point{250, 100}, 100), {}, 0, false},
        {"Scramble_100_50", With<Scramble>(100, 50), {}, 0, false},
        {"Scramble_3_100", With<Scramble>(3, 100), {}, 0, false},
        {"Neon_1", Neon, {}},
        {"Neon_9", Far(Neon, 9), {}},
        {"Sketch_1", Sketch, {}},
        {"Sketch_3", Far(Sketch, 2.8f), {}},
        {"Freeze_1", frozen, {}},
        {"Freeze_3", Far(frozen, 2.8f), {}},
        {"Wind_25_m10", With<Wind>(25, -10), {}, 0, false},
        {"Wind_m40_40", With<Wind>(-40, 40), {}, 0, false},
        {"Wind_m20_m61", With<Wind>(-20, -61), {}, 0, false},
        {"Wind_1_0", With<Wind>(1, 0), {}, 0, false},
        {"IrregularBorders_1", With<IrregularBorders>(1, white), {}, 0, false},
        {"IrregularBorders_200", With<IrregularBorders>(200, white), {}, 0, false},
        {"ErodeBorder_1", With<ErodeBorder>(1, white), {}, 0, false},
        {"ErodeBorder_255", With<ErodeBorder>(255, white), {}, 0, false},
    };
}

std::vector<EffectRow> NeutralRows() {
    const Color white{255, 255, 255}, black{0, 0, 0};
    std::vector<EffectRow> rows{
        {"Blur1", With<Blur1>(0), {}},
        {"Blur2", With<Blur2>(Point{2, 1}, 0), {}},
        {"Blur3", With<Blur3>(Point{2, 1}, 0), {}},
        {"Brightness1", With<Brightness1>(0), {}},
        {"Brightness2", With<Brightness2>(Point{10, 10}, 0), {}},
        {"ColorCorrection", With<ColorCorrection>(black, white), {}},
        {"ColorGradient", With<ColorGradient>(Point{62, 50}, 0), {}},
        {"ErodeBorder", With<ErodeBorder>(0, white), {}},
        {"Explode", With<Explode>(Point{5, 5}, 0), {}},
        {"FadeBorders", With<FadeBorders>(0, white), {}},
        {"Implode", With<Implode>(Point{5, 5}, 0, black), {}},
        {"IrregularBorders", With<IrregularBorders>(0, white), {}},
        {"Maximum", With<Maximum>(0, 0), {}},
        {"Minimum", With<Minimum>(1, -5), {}},
        {"Mosaic", With<Mosaic>(1, 1), {}},
        {"Negative", With<Negative>(false, false, false), {}},
        {"Noise", With<engine::Noise>(0, true), {}},
        {"OilPainting", With<OilPainting>(0), {}},
        {"Posterize", With<Posterize>(8, 8, 8), {}},
        {"Saturation2", With<Saturation2>(Point{60, 50}, 0), {}},
        {"Scramble_of_no_side", With<Scramble>(0, 50), {}},
        {"Scramble_of_none", With<Scramble>(5, 0), {}},
        {"Spray", With<Spray>(0), {}},
        {"Tile", With<Tile>(9, 0), {}},
        {"Tint", With<Tint>(white), {}},
        {"Wind", With<Wind>(0, 0), {}},
    };
    for (EffectRow& row : rows) {
        row.name += "_neutral";
        row.definition = [](const Picture& source, Picture& expected) { expected = source; };
    }
    return rows;
}

}  // namespace kelu::engine_test
