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
};

// Sample of `source` where `place(x, y)` says, mixed with `color` by `part(x, y, place)`.
template <class At, class Part>
Definition Sampled(At place, Color color, Part part) {
    return [=](const Picture& source, Picture& expected) {
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) {
                const Place at = place(source, x, y);
                const double left = std::floor(at.x), top = std::floor(at.y);
                const auto pixel = [&](int dx, int dy) {
                    return source.At(static_cast<int>(left) + dx, static_cast<int>(top) + dy);
                };
                const double covered = std::clamp(part(source, x, y, at), 0.0, 1.0);
                const auto channel = [&](int Rgba::*c, int outside) {
                    const auto across = [&](int dy) {
                        return pixel(0, dy).*c + (at.x - left) * (pixel(1, dy).*c - pixel(0, dy).*c);
                    };
                    const double value = across(0) + (at.y - top) * (across(1) - across(0));
                    return Rounded(outside + covered * (value - outside));
                };
                expected.Set(x, y,
                             {channel(&Rgba::red, color.red), channel(&Rgba::green, color.green),
                              channel(&Rgba::blue, color.blue), channel(&Rgba::alpha, 255)});
            }
    };
}

constexpr auto kEverywhere = [](const Picture&, int, int, Place) { return 1.0; };

// The place on the ray from `center` at distance farthest · toSource(r), r the distance in units of the farthest
// corner's.
template <class Distance>
auto OnRay(Point center, Distance toSource) {
    return [=](const Picture& source, int x, int y) -> Place {
        const double dx = x - center.x, dy = y - center.y;
        const auto reach = [](int at, int size) { return std::max(std::abs(at), std::abs(size - 1 - at)); };
        const double farthest = std::hypot(reach(center.x, source.Width()), reach(center.y, source.Height()));
        const double r = std::hypot(dx, dy) / farthest;
        if (!(r > 0)) return {static_cast<double>(x), static_cast<double>(y)};
        const double ratio = toSource(r) / r;
        return {center.x + dx * ratio, center.y + dy * ratio};
    };
}

std::string Named(const char* effect, Point center, int strength) {
    const auto number = [](int n) { return (n < 0 ? "m" : "") + std::to_string(std::abs(n)); };
    return std::string(effect) + "_" + number(center.x) + "_" + number(center.y) + "_" + std::to_string(strength);
}

EffectRow ExplodeRow(Point center, int strength) {
    return {
        Named("Explode", center, strength), [=](auto& s, auto& t, auto& run) { Explode(s, t, center, strength, run); },
        Sampled(OnRay(center, [=](double r) { return std::pow(r, 1 + strength / 50.0); }), {}, kEverywhere), 2, false};
}

EffectRow ImplodeRow(Point center, int strength, Color color) {
    return {Named("Implode", center, strength),
            [=](auto& s, auto& t, auto& run) { Implode(s, t, center, strength, color, run); },
            Sampled(OnRay(center, [=](double r) { return std::pow(r, 1 / (1 + strength / 50.0)); }), color,
                    [](const Picture& source, int, int, Place at) {
                        // A rim one pixel wide outside the outermost pixels.
                        return 1 + std::min({at.x, at.y, source.Width() - 1 - at.x, source.Height() - 1 - at.y});
                    }),
            3, false};
}

EffectRow FishEyeRow(Color color) {
    const auto radius = [](const Picture& source) { return std::min(source.Width(), source.Height()) / 2.0; };
    const auto distance = [](const Picture& source, int x, int y) {
        return std::hypot(x - (source.Width() - 1) / 2.0, y - (source.Height() - 1) / 2.0);
    };
    return {
        "FishEye", [=](auto& s, auto& t, auto& run) { FishEye(s, t, color, run); },
        Sampled(
            [=](const Picture& source, int x, int y) -> Place {
                const double middleX = (source.Width() - 1) / 2.0, middleY = (source.Height() - 1) / 2.0;
                const double r = distance(source, x, y) / radius(source), degrees = 72 * std::min(r, 1.0);
                if (r == 0) return {middleX, middleY};
                const double ratio = std::tan(degrees * std::numbers::pi / 180) /
                                     std::tan(72 * std::numbers::pi / 180) / std::min(r, 1.0);
                return {middleX + (x - middleX) * ratio, middleY + (y - middleY) * ratio};
            },
            color,
            [=](const Picture& source, int x, int y, Place) { return radius(source) + 0.5 - distance(source, x, y); }),
        2, false};
}

EffectRow MeltRow() {
    const auto drag = [](const Picture& source, int x) {
        double luma = 0;
        for (int y = 0; y < source.Height(); ++y) {
            const Rgba p = source.At(x, y);
            luma += (0.299 * p.red + 0.587 * p.green + 0.114 * p.blue) / source.Height();
        }
        const float at = static_cast<float>(x) / static_cast<float>(source.Width());
        const double flow = SmoothNoise(at * 10, RandomRow(0, 30, 0)), drop = SmoothNoise(at * 50, RandomRow(0, 30, 1));
        return source.Height() / 4.0 * (0.4 * flow + 0.6 * std::pow(drop, 3)) * (0.5 + luma / 510);
    };
    return {"Melt", [](auto& s, auto& t, auto& run) { Melt(s, t, run); },
            Sampled(
                [=](const Picture& source, int x, int y) -> Place {
                    const double part = Smoothstep(static_cast<float>(y) / static_cast<float>(source.Height()));
                    return {static_cast<double>(x), y - drag(source, x) * part};
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
