// Plain definitions of the borders.
// SPDX-License-Identifier: MIT
#include "engine/borders.h"

#include <algorithm>

#include "engine/random.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

int EdgeDistance(const Picture& source, int x, int y) {
    return std::min({x, y, source.Width() - 1 - x, source.Height() - 1 - y});
}

EffectRow FadeRow(int depth, Color color) {
    return {"FadeBorders_" + std::to_string(depth), With<FadeBorders>(depth, color),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const double t = std::min(1.0, EdgeDistance(source, x, y) / static_cast<double>(depth));
                const double clear = t * t * (3 - 2 * t);
                const auto mix = [=](int c, int from) { return from + (c - from) * clear; };
                return {mix(p.red, color.red), mix(p.green, color.green), mix(p.blue, color.blue)};
            }),
            1};
}

std::array<double, 3> Covered(const Rgba& p, Color color, double cover) {
    return {p.red + (color.red - p.red) * cover, p.green + (color.green - p.green) * cover,
            p.blue + (color.blue - p.blue) * cover};
}

// Four bands, each with its own curve of widths; a pixel is covered as far as the nearest band reaches into it.
EffectRow IrregularRow(int depth, Color color) {
    return {"IrregularBorders_" + std::to_string(depth), With<IrregularBorders>(depth, color),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const auto reach = [=](int edge, int along, int distance) {
                    const float place = static_cast<float>(along) / static_cast<float>(2 * depth);
                    const double wave = SmoothNoise(place, RandomRow(0, 27, edge));
                    return depth * (1 / 3.0 + wave * 2 / 3) - distance;
                };
                const double most = std::max({reach(0, x, y), reach(1, x, source.Height() - 1 - y), reach(2, y, x),
                                              reach(3, y, source.Width() - 1 - x)});
                return Covered(source.At(x, y), color, std::clamp(most, 0.0, 1.0));
            }),
            1};
}

// Fractal noise against a threshold that falls from 1 at the edge to 0 at the full depth.
EffectRow ErodeRow(int depth, Color color) {
    return {"ErodeBorder_" + std::to_string(depth), With<ErodeBorder>(depth, color),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                double noise = 0.5;
                for (int octave = 0; octave < 5; ++octave) {
                    const float frequency = static_cast<float>(1 << octave) / static_cast<float>(depth);
                    const double value =
                        SmoothNoise(static_cast<float>(x) * frequency, static_cast<float>(y) * frequency, 21, octave);
                    noise += 1.6 * (value - 0.5) * (16 >> octave) / 31;
                }
                const double distance = EdgeDistance(source, x, y) + 0.5;
                const double cover = (1 - distance / depth - std::max(noise, 0.0)) * depth / 2;
                return Covered(source.At(x, y), color, std::clamp(cover, 0.0, 1.0));
            }),
            1};
}

}  // namespace

std::vector<EffectRow> BorderRows() {
    return {
        FadeRow(1, {255, 255, 255}),      FadeRow(30, {200, 100, 0}),      FadeRow(255, {0, 0, 255}),
        IrregularRow(1, {255, 255, 255}), IrregularRow(20, {255, 200, 0}), IrregularRow(200, {0, 0, 0}),
        ErodeRow(1, {255, 255, 255}),     ErodeRow(20, {255, 200, 0}),     ErodeRow(255, {10, 0, 0}),
    };
}

}  // namespace kelu::engine_test
