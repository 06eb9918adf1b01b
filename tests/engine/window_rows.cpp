// Plain definitions of the effects that look at a window round the pixel.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/blurs.h"
#include "engine/extremes.h"
#include "engine/mosaic.h"
#include "engine/oil_painting.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

// Four real channels: red, green, blue, alpha.
using Quad = std::array<double, 4>;

Quad ToQuad(const Rgba& p) {
    return {static_cast<double>(p.red), static_cast<double>(p.green), static_cast<double>(p.blue),
            static_cast<double>(p.alpha)};
}
Rgba FromQuad(const Quad& q) { return {Rounded(q[0]), Rounded(q[1]), Rounded(q[2]), Rounded(q[3])}; }

// A picture of real numbers.
struct Plane {
    int width, height;
    std::vector<Quad> quads;

    explicit Plane(const Picture& p) : width(p.Width()), height(p.Height()) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) quads.push_back(ToQuad(p.At(x, y)));
    }
    const Quad& At(int x, int y) const {
        return quads[static_cast<std::size_t>(RepeatEdge(y, height) * width + RepeatEdge(x, width))];
    }
};

// The Gaussian far beyond where it matters, along one axis and then the other.
Plane Blurred(Plane plane, double sigma) {
    const int reach = static_cast<int>(std::ceil(4.5 * sigma));
    std::vector<double> weight;
    double sum = 0;
    for (int i = -reach; i <= reach; ++i) {
        weight.push_back(std::exp(-i * i / (2 * sigma * sigma)));
        sum += weight.back();
    }
    for (const bool down : {false, true}) {
        const Plane before = plane;
        for (int y = 0; y < plane.height; ++y)
            for (int x = 0; x < plane.width; ++x) {
                Quad mean{};
                for (int i = -reach; i <= reach; ++i) {
                    const Quad& q = down ? before.At(x, y + i) : before.At(x + i, y);
                    for (std::size_t c = 0; c < 4; ++c)
                        mean[c] += q[c] * weight[static_cast<std::size_t>(i + reach)] / sum;
                }
                plane.quads[static_cast<std::size_t>(y * plane.width + x)] = mean;
            }
    }
    return plane;
}

EffectRow Blur1Row(int strength) {
    return {"Blur1_" + std::to_string(strength), [=](auto& s, auto& t, auto& run) { Blur1(s, t, strength, run); },
            [=](const Picture& source, Picture& expected) {
                const Plane blurred = Blurred(Plane(source), strength / 2.0);
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) expected.Set(x, y, FromQuad(blurred.At(x, y)));
            },
            2, false};
}

EffectRow ExtremeRow(bool largest, int square, int radius) {
    const std::string name =
        std::string(largest ? "Maximum" : "Minimum") + (square ? "_square_" : "_disc_") + std::to_string(radius);
    return {name, [=](auto& s, auto& t, auto& run) { (largest ? Maximum : Minimum)(s, t, square, radius, run); },
            [=](const Picture& source, Picture& expected) {
                const auto extreme = [=](int& value, int other) {
                    value = largest ? std::max(value, other) : std::min(value, other);
                };
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) {
                        Rgba best = source.At(x, y);
                        for (int dy = -radius; dy <= radius; ++dy)
                            for (int dx = -radius; dx <= radius; ++dx) {
                                if (!square && dx * dx + dy * dy > radius * radius) continue;
                                const Rgba p = source.At(x + dx, y + dy);
                                extreme(best.red, p.red);
                                extreme(best.green, p.green);
                                extreme(best.blue, p.blue);
                                extreme(best.alpha, p.alpha);
                            }
                        expected.Set(x, y, best);
                    }
            },
            0, false};
}

EffectRow MosaicRow(int width, int height) {
    return {"Mosaic_" + std::to_string(width) + "x" + std::to_string(height),
            [=](auto& s, auto& t, auto& run) { Mosaic(s, t, width, height, run); },
            [=](const Picture& source, Picture& expected) {
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) {
                        const int left = x / width * width, right = std::min(source.Width(), left + width);
                        const int top = y / height * height, bottom = std::min(source.Height(), top + height);
                        if (x > left || y > top) {  // as the block's first pixel
                            expected.Set(x, y, expected.At(left, top));
                            continue;
                        }
                        Quad sum{};
                        for (int v = top; v < bottom; ++v)
                            for (int u = left; u < right; ++u)
                                for (std::size_t c = 0; c < 4; ++c) sum[c] += ToQuad(source.At(u, v))[c];
                        for (double& c : sum) c /= (right - left) * (bottom - top);
                        expected.Set(x, y, FromQuad(sum));
                    }
            },
            0, false};
}

EffectRow OilPaintingRow(int radius) {
    return {"OilPainting_" + std::to_string(radius),
            [=](auto& s, auto& t, auto& run) { OilPainting(s, t, radius, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                struct Band {
                    int weight = 0, count = 0;
                    double red = 0, green = 0, blue = 0;
                };
                std::array<Band, 32> bands;
                for (int dy = -radius; dy <= radius; ++dy)
                    for (int dx = -radius; dx <= radius; ++dx) {
                        const Rgba p = source.At(x + dx, y + dy);
                        Band& band = bands[static_cast<std::size_t>(Luma(p) / 8)];
                        band.weight += (radius + 1 - std::abs(dx)) * (radius + 1 - std::abs(dy));
                        ++band.count;
                        band.red += p.red;
                        band.green += p.green;
                        band.blue += p.blue;
                    }
                const Band& full = *std::max_element(bands.begin(), bands.end(),
                                                     [](const Band& a, const Band& b) { return a.weight < b.weight; });
                return {full.red / full.count, full.green / full.count, full.blue / full.count};
            }),
            1};
}

}  // namespace

std::vector<EffectRow> WindowRows() {
    return {
        Blur1Row(1),
        Blur1Row(4),
        Blur1Row(5),
        Blur1Row(9),
        Blur1Row(100),
        ExtremeRow(true, 0, 1),
        ExtremeRow(true, 0, 2),
        ExtremeRow(true, 0, 12),
        ExtremeRow(false, 0, 5),
        ExtremeRow(true, 1, 1),
        ExtremeRow(true, 1, 3),
        ExtremeRow(false, 1, 9),
        MosaicRow(10, 10),
        MosaicRow(1, 7),
        MosaicRow(100, 3),
        OilPaintingRow(1),
        OilPaintingRow(5),
        OilPaintingRow(11),
    };
}

}  // namespace kelu::engine_test
