// Plain definitions of the borders.
// SPDX-License-Identifier: MIT
#include "engine/borders.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "engine/random.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

int EdgeDistance(const Picture& source, int x, int y) {
    return std::min({x, y, source.Width() - 1 - x, source.Height() - 1 - y});
}

// `color` over a part of a pixel, its alpha included.
Rgba Covered(const Rgba& p, Color color, double part) {
    const double left = p.alpha / 255.0 * (1 - part), whole = part + left, share = whole > 0 ? part / whole : 0;
    const auto mix = [=](int own, int over) { return Rounded(own + (over - own) * share); };
    return {mix(p.red, color.red), mix(p.green, color.green), mix(p.blue, color.blue), Rounded(255 * whole)};
}

Rgba Darker(const Rgba& p, double light) {
    return {Rounded(p.red * light), Rounded(p.green * light), Rounded(p.blue * light), p.alpha};
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
            const auto clear = [=](int at, int size) {
                const double t = std::min(1.0, std::min(at, size - 1 - at) / static_cast<double>(depth));
                return t * t * (3 - 2 * t);
            };
            const double both = clear(x, source.Width()) * clear(y, source.Height());
            return Covered(source.At(x, y), color, 1 - both);
        });
}

// Four bands, each with its own curve of widths; beneath each a paper that reaches a little farther, and its shadow.
EffectRow IrregularRow(int depth, Color color) {
    return BorderRow(
        "IrregularBorders_" + std::to_string(depth),
        [=](auto& s, auto& t, auto& run) { IrregularBorders(s, t, depth, color, run); },
        [=](const Picture& source, int x, int y) {
            const float most = static_cast<float>(depth), bare = std::min(1 + most / 20, most / 3);
            float nearest = -1e9f, paper = -1e9f;
            for (const auto& [edge, along, distance] :
                 {std::array{0, x, y}, {1, x, source.Height() - 1 - y}, {2, y, x}, {3, y, source.Width() - 1 - x}}) {
                const float at = static_cast<float>(along);
                float width = most / 2, height = most / 5, step = 1 / (2 * most);
                for (int octave = 0; octave == 0 || (octave < 12 && step <= 0.5f); ++octave) {
                    width += std::max(height, 0.75f) * (2 * SmoothNoise(at * step, RandomRow(octave, 27, edge)) - 1);
                    step *= 2;
                    height *= 0.6f;
                }
                const float reach = std::clamp(width, most / 12, most) - static_cast<float>(distance);
                nearest = std::max(nearest, reach);
                paper = std::max(paper, reach + bare * SmoothNoise(at / 3, RandomRow(0, 27, 4 + edge)));
            }
            const auto unit = [](float value) { return static_cast<double>(std::clamp(value, 0.0f, 1.0f)); };
            const double dark = unit(paper / static_cast<float>(2 + depth / 20) + 1);
            const auto pale = [](int level) { return level + (255 - level) * 3 / 4; };
            const Color torn{pale(color.red), pale(color.green), pale(color.blue)};
            const Rgba shaded = Darker(source.At(x, y), 1 - 0.4 * dark * dark);
            return Covered(Covered(shaded, torn, unit(paper)), color, unit(nearest));
        });
}

// Fractal noise against a threshold that falls from 1 at the edge to 0 at the full depth, and a narrow shadow.
EffectRow ErodeRow(int depth, Color color) {
    return BorderRow(
        "ErodeBorder_" + std::to_string(depth),
        [=](auto& s, auto& t, auto& run) { ErodeBorder(s, t, depth, color, run); },
        [=](const Picture& source, int x, int y) {
            double noise = 0.5;
            for (int octave = 0; octave == 0 || depth >> octave >= 2; ++octave) {
                const float frequency = static_cast<float>(1 << octave) / static_cast<float>(depth);
                const double value =
                    SmoothNoise(static_cast<float>(x) * frequency, static_cast<float>(y) * frequency, 21, octave);
                noise += 0.64 * (value - 0.5) * std::pow(0.6, octave);
            }
            const double distance = EdgeDistance(source, x, y) + 0.5;
            const double inside = (1 - distance / depth - std::max(noise, 0.0)) * depth / 2;
            const Rgba shaded = Darker(source.At(x, y), 1 - 0.45 * std::clamp(0.4 * inside + 1, 0.0, 1.0));
            return Covered(shaded, color, std::clamp(inside, 0.0, 1.0));
        });
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
