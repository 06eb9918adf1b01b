// Plain definitions of the effects that fetch each pixel from somewhere else.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/melt.h"
#include "engine/radial_warps.h"
#include "engine/random.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

struct Place {
    double x, y;
    double cubic = 0;  // what part of the sample is bicubic, not bilinear
    double light = 1;  // how bright its colour is
};

// The weights of four neighbours, bilinear or Catmull and Rom's.
std::array<double, 4> Weights(double t, double cubic) {
    const double tt = t * t, ttt = tt * t;
    const std::array<double, 4> linear{0, 1 - t, t, 0},
        spline{(2 * tt - ttt - t) / 2, (3 * ttt - 5 * tt + 2) / 2, (4 * tt - 3 * ttt + t) / 2, (ttt - tt) / 2};
    std::array<double, 4> mixed{};
    for (std::size_t i = 0; i < 4; ++i) mixed[i] = linear[i] + cubic * (spline[i] - linear[i]);
    return mixed;
}

// Sample of `source` where `place(x, y)` says, mixed with `color` by `part(x, y, place)`.
template <class At, class Part>
Definition Sampled(At place, Color color, Part part) {
    return [=](const Picture& source, Picture& expected) {
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) {
                const Place at = place(source, x, y);
                const double inX = std::clamp(at.x, 0.0, source.Width() - 1.0),
                             inY = std::clamp(at.y, 0.0, source.Height() - 1.0);
                const double left = std::floor(inX), top = std::floor(inY);
                const auto across = Weights(inX - left, at.cubic), down = Weights(inY - top, at.cubic);
                const double covered = std::clamp(part(source, x, y, at), 0.0, 1.0);
                const auto channel = [&](int Rgba::*c, int outside) {
                    double value = 0;
                    for (std::size_t i = 0; i < 16; ++i)
                        value += across[i % 4] * down[i / 4] *
                                 (source.At(static_cast<int>(left) + static_cast<int>(i % 4) - 1,
                                            static_cast<int>(top) + static_cast<int>(i / 4) - 1).*
                                  c);
                    if (c != &Rgba::alpha) value *= at.light;
                    return Rounded(outside + covered * (value - outside));
                };
                expected.Set(x, y,
                             {channel(&Rgba::red, color.red), channel(&Rgba::green, color.green),
                              channel(&Rgba::blue, color.blue), channel(&Rgba::alpha, 255)});
            }
    };
}

constexpr auto kEverywhere = [](const Picture&, int, int, Place) { return 1.0; };

// The distance from `center` in parts of half the picture's diagonal.
double Distance(const Picture& source, Point center, int x, int y) {
    return std::hypot(x - center.x, y - center.y) / (std::hypot(source.Width(), source.Height()) / 2);
}

double Smooth(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

std::string Named(const char* effect, Point center, int strength) {
    const auto number = [](int n) { return (n < 0 ? "m" : "") + std::to_string(std::abs(n)); };
    return std::string(effect) + "_" + number(center.x) + "_" + number(center.y) + "_" + std::to_string(strength);
}

double Pulled(int strength, double r) {
    const double enlarged = 1 + 3 * std::sqrt(strength / 100.0);
    return 1 - (1 - 1 / enlarged) * std::pow(1 - r * r, 3);
}

EffectRow ExplodeRow(Point center, int strength) {
    return {Named("Explode", center, strength),
            [=](auto& s, auto& t, auto& run) { Explode(s, t, center, strength, run); },
            Sampled(
                [=](const Picture& source, int x, int y) -> Place {
                    const double by = Pulled(strength, std::min(1.0, Distance(source, center, x, y)));
                    return {center.x + (x - center.x) * by, center.y + (y - center.y) * by,
                            std::clamp(4 - 6 * by, 0.0, 1.0)};
                },
                {}, kEverywhere),
            4, false};
}

// What Explode fetches from u lies at r; less near the edges.
EffectRow ImplodeRow(Point center, int strength, Color color) {
    return {Named("Implode", center, strength),
            [=](auto& s, auto& t, auto& run) { Implode(s, t, center, strength, color, run); },
            Sampled(
                [=](const Picture& source, int x, int y) -> Place {
                    const double r = std::min(1.0, Distance(source, center, x, y));
                    double u = r;
                    for (int i = 0; i < 400 && r > 0; ++i) u += (r - u * Pulled(strength, u)) / 3;
                    const double reach = 0.21 * std::hypot(source.Width(), source.Height());
                    const auto calm = [=](int at, int size) { return Smooth(std::min(at, size - 1 - at) / reach); };
                    const double moved = calm(x, source.Width()) * calm(y, source.Height());
                    const double by = r > 0 ? 1 + (u / r - 1) * moved : 1;
                    return {center.x + (x - center.x) * by, center.y + (y - center.y) * by};
                },
                color,
                [=](const Picture& source, int x, int y, Place) {
                    return 1 - Smooth(1 - Distance(source, center, x, y) / 0.12) * std::pow(strength / 100.0, 3);
                }),
            3, false};
}

EffectRow FishEyeRow(Color color) {
    struct Ball {
        double x, y, r, beyond;

        Ball(const Picture& source, int column, int row)
            : x(column - (source.Width() - 1) / 2.0),
              y(row - (source.Height() - 1) / 2.0),
              r(std::hypot(x, y) / (std::min(source.Width(), source.Height()) / 2.0)),
              beyond(r / std::max(1e-6, std::hypot(2 * x / source.Width(), 2 * y / source.Height()))) {}
    };
    return {"FishEye", [=](auto& s, auto& t, auto& run) { FishEye(s, t, color, run); },
            Sampled(
                [](const Picture& source, int x, int y) -> Place {
                    const Ball ball(source, x, y);
                    const double r = std::min(1.0, ball.r), ratio = 0.55 + (ball.beyond - 0.55) * std::pow(r, 4);
                    return {x + ball.x * (ratio - 1), y + ball.y * (ratio - 1), 0, 1 - 0.35 * std::pow(r, 10)};
                },
                color,
                [](const Picture& source, int x, int y, Place) {
                    return (1 - Ball(source, x, y).r) * std::min(source.Width(), source.Height()) / 2 + 0.5;
                }),
            3, false};
}

EffectRow MeltRow() {
    return {
        "Melt", Melt,
        Sampled(
            [](const Picture& source, int x, int y) -> Place {
                const auto noise = [=, &source](int values, int stream) {
                    const float at = static_cast<float>(x) / static_cast<float>(source.Width());
                    return static_cast<double>(SmoothNoise(at * static_cast<float>(values), RandomRow(0, 30, stream)));
                };
                const double sag = 0.09 * noise(12, 0) + 0.17 * std::pow(Smooth(noise(18, 1)), 2);
                return {1.0 * x, y - sag * source.Height() * Smooth(1.0 * y / source.Height())};
            },
            {}, kEverywhere),
        2, false};
}

}  // namespace

std::vector<EffectRow> WarpRows() {
    return {
        MeltRow(),
        ExplodeRow({250, 100}, 10),
        ExplodeRow({20, 15}, 100),
        ExplodeRow({-40, 999}, 50),
        ImplodeRow({30, 20}, 10, {0, 0, 0}),
        ImplodeRow({250, 100}, 60, {255, 10, 100}),
        FishEyeRow({255, 255, 255}),
    };
}

}  // namespace kelu::engine_test
