// Plain definitions of the 3x3 effects.
// SPDX-License-Identifier: MIT
#include "engine/antialias.h"
#include "engine/convolution.h"
#include "engine/emboss.h"

#include <algorithm>
#include <cmath>

#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

// The compass, clockwise from north.
constexpr int kDx[] = {0, 1, 1, 1, 0, -1, -1, -1};
constexpr int kDy[] = {-1, -1, 0, 1, 1, 1, 0, -1};

// Over two pixels and more; a hidden neighbour counts for as little as it shows.
EffectRow ColorEmbossRow(int direction, int scale = 1) {
    return {"ColorEmboss_" + std::to_string(direction) + "_" + std::to_string(scale),
            Far([=](auto& s, auto& t, auto& run) { ColorEmboss(s, t, direction, run); }, static_cast<float>(scale)),
            EachPixel([=, dx = 2 * scale * kDx[direction], dy = 2 * scale * kDy[direction]](
                          const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y), before = source.At(x - dx, y - dy), after = source.At(x + dx, y + dy);
                const double part = 2 * std::min(before.alpha, after.alpha) / 255.0;
                return {p.red + (before.red - after.red) * part, p.green + (before.green - after.green) * part,
                        p.blue + (before.blue - after.blue) * part};
            }),
            3};
}

EffectRow EmbossRow(int direction, int strength, int offset, int scale = 1) {
    return {"Emboss_" + std::to_string(direction) + "_" + std::to_string(strength),
            Far([=](auto& s, auto& t, auto& run) { Emboss(s, t, direction, strength, offset, run); },
                static_cast<float>(scale)),
            EachPixel([=, dx = scale * kDx[direction], dy = scale * kDy[direction]](const Picture& source, int x,
                                                                                    int y) -> std::array<double, 3> {
                const double gray =
                    offset + strength * (Luma(source.At(x - dx, y - dy)) - Luma(source.At(x + dx, y + dy)));
                return {gray, gray, gray};
            })};
}

Definition Convolved(Weights3x3 weights, double divisor, int offset, int step = 1) {
    return EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
        double red = 0, green = 0, blue = 0;
        for (int i = 0; i < 9; ++i) {
            const Rgba p = source.At(x + (i % 3 - 1) * step, y + (i / 3 - 1) * step);
            const double weight = weights[static_cast<std::size_t>(i)];
            red += weight * p.red;
            green += weight * p.green;
            blue += weight * p.blue;
        }
        return {red / divisor + offset, green / divisor + offset, blue / divisor + offset};
    });
}

EffectRow HighPassRow(int kind, Weights3x3 weights) {
    return {"HighPass_" + std::to_string(kind), [=](auto& s, auto& t, auto& run) { HighPass(s, t, kind, run); },
            Convolved(weights, 1, 0)};
}

EffectRow SpecialRow(int kind, const std::string& name, Weights3x3 weights, int times = 1, int offset = 127) {
    for (float& weight : weights) weight *= static_cast<float>(times);
    return {"SpecialFilter_" + name, [=](auto& s, auto& t, auto& run) { SpecialFilter(s, t, kind, offset, run); },
            Convolved(weights, 1, offset)};
}

EffectRow KernelRow(const std::string& name, Weights3x3 weights, float divisor, int offset, int step,
                    int tolerance = 0) {
    return {"Convolve_" + name,
            [=](auto& s, auto& t, auto& run) {
                Passes passes(run);
                Convolve(s, t, weights, divisor, offset, step, passes);
            },
            Convolved(weights, divisor, offset, step), tolerance};
}

// The mean of two samples, half a step along the edge to either side, each bilinear.
EffectRow AntialiasRow() {
    return {"Antialias", [](auto& s, auto& t, auto& run) { Antialias(s, t, run); },
            EachPixel([](const Picture& source, int x, int y) -> std::array<double, 3> {
                const auto luma = [&](int dx, int dy) { return Luma(source.At(x + dx, y + dy)); };
                const int gradientX =
                    luma(1, -1) + 2 * luma(1, 0) + luma(1, 1) - luma(-1, -1) - 2 * luma(-1, 0) - luma(-1, 1);
                const int gradientY =
                    luma(-1, 1) + 2 * luma(0, 1) + luma(1, 1) - luma(-1, -1) - 2 * luma(0, -1) - luma(1, -1);
                const int size = std::max(std::abs(gradientX), std::abs(gradientY));
                const Rgba p = source.At(x, y);
                std::array<double, 3> sum = {p.red + 0.0, p.green + 0.0, p.blue + 0.0};
                if (size < 96) return sum;
                sum = {};
                for (const double side : {-0.5, 0.5}) {
                    const double dx = -side * gradientY / size, dy = side * gradientX / size;
                    const int left = static_cast<int>(std::floor(dx)), top = static_cast<int>(std::floor(dy));
                    for (int row = top; row <= top + 1; ++row)
                        for (int column = left; column <= left + 1; ++column) {
                            const double part = (1 - std::abs(dx - column)) * (1 - std::abs(dy - row)) / 2;
                            const Rgba q = source.At(x + column, y + row);
                            sum[0] += part * q.red;
                            sum[1] += part * q.green;
                            sum[2] += part * q.blue;
                        }
                }
                return sum;
            }),
            1};
}

Definition Enhanced(int step) {
    return EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
        const auto luma = [&](int dx, int dy) { return Luma(source.At(x + dx * step, y + dy * step)); };
        double edge = 12 * luma(0, 0);
        for (const int far : {1, 2}) edge -= luma(-far, -far) + luma(far, -far) + luma(-far, far) + luma(far, far);
        edge -= luma(-3, 0) + luma(3, 0) + luma(0, -3) + luma(0, 3);
        const double driven = std::min(128.0, std::max(0.0, std::abs(edge) - 18) * 0.2151);
        const double change = std::copysign(driven - driven * driven / 256, edge);
        const Rgba p = source.At(x, y);
        return {p.red + change, p.green + change, p.blue + change};
    });
}

}  // namespace

std::vector<EffectRow> NeighbourhoodRows() {
    std::vector<EffectRow> rows = {
        AntialiasRow(),
        EmbossRow(1, 2, 127),
        EmbossRow(4, 1, 0),
        EmbossRow(7, 10, 255),
        EmbossRow(3, 3, 100, 5),
        {"EnhanceEdges", [](auto& s, auto& t, auto& run) { EnhanceEdges(s, t, run); }, Enhanced(1), 1},
        {"EnhanceEdges_far", Far(EnhanceEdges, 3), Enhanced(3), 1},
        HighPassRow(0, {-1, -1, -1, -1, 9, -1, -1, -1, -1}),
        HighPassRow(1, {0, -1, 0, -1, 5, -1, 0, -1, 0}),
        HighPassRow(2, {1, -2, 1, -2, 5, -2, 1, -2, 1}),
        // Read off the pictures: east is bright on the right, north bright above.
        SpecialRow(0, "east", {-1, 1, 1, -1, -2, 1, -1, 1, 1}),
        SpecialRow(1, "north", {1, 1, 1, 1, -2, 1, -1, -1, -1}),
        SpecialRow(2, "south", {-1, -1, -1, 1, -2, 1, 1, 1, 1}),
        SpecialRow(3, "west", {1, 1, -1, 1, -2, -1, 1, 1, -1}),
        SpecialRow(4, "laplace1", {0, -1, 0, -1, 4, -1, 0, -1, 0}, 4),
        SpecialRow(5, "laplace2", {-1, -1, -1, -1, 8, -1, -1, -1, -1}, 2, 0),
        SpecialRow(6, "laplace3", {1, -2, 1, -2, 4, -2, 1, -2, 1}, 6, 255),
        SpecialRow(7, "laplace_diagonal", {-1, 0, -1, 0, 4, 0, -1, 0, -1}, 4),
        SpecialRow(8, "laplace_horizontal", {0, -1, 0, 0, 2, 0, 0, -1, 0}, 6),
        SpecialRow(9, "laplace_vertical", {0, 0, 0, -1, 2, -1, 0, 0, 0}, 6),
        SpecialRow(10, "prewitt_horizontal", {1, 1, 1, 0, 0, 0, -1, -1, -1}),
        SpecialRow(11, "prewitt_vertical", {-1, 0, 1, -1, 0, 1, -1, 0, 1}),
        SpecialRow(12, "difference_diagonal", {-1, 0, 0, 0, 1, 0, 0, 0, 0}, 3),
        SpecialRow(13, "difference_horizontal", {0, -1, 0, 0, 1, 0, 0, 0, 0}, 3),
        SpecialRow(14, "difference_vertical", {0, 0, 0, -1, 1, 0, 0, 0, 0}, 3),
        SpecialRow(15, "sobel_horizontal", {1, 2, 1, 0, 0, 0, -1, -2, -1}),
        SpecialRow(16, "sobel_vertical", {-1, 0, 1, -2, 0, 2, -1, 0, 1}),
        KernelRow("default", {1, 1, 1, 1, -7, 1, 1, 1, 1}, 1, 0, 1),
        KernelRow("binomial", {1, 2, 1, 2, 4, 2, 1, 2, 1}, 16, 0, 16),
        KernelRow("mean", {1, 1, 1, 1, 1, 1, 1, 1, 1}, 9, 10, 1, 1),
        KernelRow("largest_in_short", {-15, 15, -15, 15, 7, 15, -15, 15, -15}, 1, 0, 1),
        KernelRow("too_large_for_short", {0, 0, 0, 0, 200, -199, 0, 0, 0}, 1, 0, 2, 1),
        KernelRow("fractions", {0.1f, -0.4f, 0.25f, 0, 1.5f, 0, -0.75f, 0.3f, 0}, -0.7f, 255, 1, 1),
        ColorEmbossRow(6, 4),
    };
    for (int direction = 0; direction < 8; ++direction) rows.push_back(ColorEmbossRow(direction));
    return rows;
}

}  // namespace kelu::engine_test
