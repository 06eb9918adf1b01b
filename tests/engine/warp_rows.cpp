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
    const double left = 1 - strength / 100.0;
    return 1 - 0.75 * (1 - left * left) * (1 - r * r) * (1 - r * r);
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
        double x, y, u, v, r, width, height;

        Ball(const Picture& source, int column, int row)
            : x(column - (source.Width() - 1) / 2.0),
              y(row - (source.Height() - 1) / 2.0),
              u(x / source.Width() * 2),
              v(y / source.Height() * 2),
              r(std::hypot(u, v)),
              width(source.Width()),
              height(source.Height()) {}
    };
    return {"FishEye", [=](auto& s, auto& t, auto& run) { FishEye(s, t, color, run); },
            Sampled(
                [](const Picture& source, int x, int y) -> Place {
                    const Ball ball(source, x, y);
                    const double r = std::min(1.0, ball.r), bend = 63 * std::numbers::pi / 180;
                    double ratio = (r > 0 ? std::tan(r * bend) / r : bend) / std::tan(bend);
                    // From the disc to the square.
                    const double uv = ball.u * ball.v * ratio * ratio;
                    ratio *= std::sqrt(2 / (1 + std::sqrt(std::max(0.0, 1 - 4 * uv * uv))));
                    return {x + ball.x * (ratio - 1), y + ball.y * (ratio - 1)};
                },
                color,
                [](const Picture& source, int x, int y, Place) {
                    const Ball ball(source, x, y);
                    return (1 - ball.r) * std::min(ball.width, ball.height) / 2 + 0.5;
                }),
            3, false};
}

// A place of a column between two rows, mixed.
Rgba Between(const Picture& source, int x, double y) {
    const double within = std::clamp(y, 0.0, source.Height() - 1.0);
    const int row = static_cast<int>(within);
    const auto channel = [&](int Rgba::*c) {
        const int a = source.At(x, row).*c, b = source.At(x, row + 1).*c;
        return Rounded(a + (b - a) * (within - row));
    };
    return {channel(&Rgba::red), channel(&Rgba::green), channel(&Rgba::blue), channel(&Rgba::alpha)};
}

// One of the 44 drops. Where it begins is found in the engine's own floats, so that of two like places the same wins.
struct Drop {
    double middle, half, begin = 0, length = 0;

    Drop(const Picture& source, int number) {
        const int width = source.Width(), height = source.Height(), rows = std::min(height, 256);
        const auto random = [=](int stream) { return RandomRow(0, 30, 2 + stream).Unit(number); };
        middle = static_cast<double>((static_cast<float>(number) + 0.3f + 0.4f * random(0)) *
                                     static_cast<float>(width) / 44);
        half = static_cast<double>((0.2f + 0.3f * random(1) * random(1)) * static_cast<float>(width) / 44);
        const int reach = std::max(1, rows / 32), x = std::min(width - 1, static_cast<int>(middle));
        std::vector<float> sums{0};
        for (int row = 0; row < rows; ++row) {
            const Rgba p = source.At(x, row * height / rows);
            sums.push_back(sums.back() + static_cast<float>(299 * p.red + 587 * p.green + 114 * p.blue) / 1000);
        }
        float best = 0;
        for (int row = reach; row < rows * 3 / 4 && row + reach <= rows; ++row) {
            const auto sum = [&](int at) { return sums[static_cast<std::size_t>(at)]; };
            const float fall = 2 * sum(row) - sum(row - reach) - sum(row + reach);
            const float wanted = fall * (0.5f + RandomRow(1 + number, 30, 2).Unit(row / (2 * reach)));
            if (wanted <= best) continue;
            best = wanted;
            begin = row * height / rows;
            length = height * (0.02 + 0.24 * static_cast<double>(random(2) * random(2)));
        }
    }
};

void Melted(const Picture& source, Picture& expected) {
    const int width = source.Width(), height = source.Height();
    const auto sagged = [=](int x, double y) {
        const float place = static_cast<float>(x) / static_cast<float>(width) * 12;
        return 0.18 * height * static_cast<double>(SmoothNoise(place, RandomRow(0, 30, 0))) * Smooth(y / height);
    };
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) expected.Set(x, y, Between(source, x, y - sagged(x, y)));
    for (int number = 0; number < 44; ++number) {
        const Drop drop(source, number);
        if (drop.length <= 0) continue;
        const double from = drop.begin + sagged(std::min(width - 1, static_cast<int>(drop.middle)), drop.begin);
        const double tip = from + drop.length;
        for (int y = static_cast<int>(from); y < std::min(height, static_cast<int>(tip) + 2); ++y) {
            const double along = y - from, gather = 1 / (1 + along / drop.half);
            const double thick = drop.half * (0.6 + 0.5 * gather * gather + 0.4 * Smooth(along / drop.length));
            const double round = std::max(0.0, y - tip + thick);
            const double reach = std::sqrt(std::max(0.0, thick * thick - round * round));
            const double begun = Smooth(along / (3 * drop.half + 1));
            for (int x = 0; x < width; ++x) {
                const double off = x - drop.middle, u = off / thick;
                const double part = std::clamp(reach + 0.5 - std::abs(off), 0.0, 1.0);
                const double light = 1 - 0.3 * begun * u * u;
                const double gloss = 40 * begun * std::max(0.0, 1 - 9 * (u + 0.45) * (u + 0.45));
                const Rgba below = expected.At(x, y), own = Between(source, x, drop.begin - 2 - 0.15 * along);
                const auto channel = [&](int Rgba::*c) {
                    const double lit = c == &Rgba::alpha ? own.*c : std::min(255.0, own.*c * light + gloss);
                    return Rounded(below.*c + (lit - below.*c) * part);
                };
                expected.Set(x, y,
                             {channel(&Rgba::red), channel(&Rgba::green), channel(&Rgba::blue), channel(&Rgba::alpha)});
            }
        }
    }
}

}  // namespace

std::vector<EffectRow> WarpRows() {
    return {
        {"Melt", Melt, Melted, 3, false},    ExplodeRow({250, 100}, 10),
        ExplodeRow({20, 15}, 100),           ExplodeRow({-40, 999}, 50),
        ImplodeRow({30, 20}, 10, {0, 0, 0}), ImplodeRow({250, 100}, 60, {255, 10, 100}),
        FishEyeRow({255, 255, 255}),
    };
}

}  // namespace kelu::engine_test
