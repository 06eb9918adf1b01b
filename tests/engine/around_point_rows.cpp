// Plain definitions of the effects around a point.
// SPDX-License-Identifier: MIT
#include "engine/around_point.h"

#include <algorithm>
#include <cmath>

#include "tests/engine/effect_rows.h"

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
    return {"Brightness2_" + name, With<Brightness2>(at, amount),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const double by = amount / 100.0 * Weight(source, at, x, y);
                const auto changed = [=](int c) { return amount < 0 ? c + c * by : c + 255 * by; };
                return {changed(p.red), changed(p.green), changed(p.blue)};
            }),
            1};
}

EffectRow Saturation2Row(const std::string& name, Point at, int amount, int tolerance) {
    return {
        "Saturation2_" + name, With<Saturation2>(at, amount),
        EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
            const Rgba p = source.At(x, y);
            const double luma = Luma(p), factor = 1 + amount / 100.0 * Weight(source, at, x, y);
            return {luma + (p.red - luma) * factor, luma + (p.green - luma) * factor, luma + (p.blue - luma) * factor};
        }),
        tolerance};
}

// The fully saturated colour at `turn` sixths of the circle of hues: red, yellow, green, cyan, blue, magenta.
std::array<double, 3> Hue(double turn) {
    const double rest = std::fmod(turn, 2.0), middle = 255 * (1 - std::abs(rest - 1));
    switch (static_cast<int>(turn)) {
        case 0:
            return {255, middle, 0};
        case 1:
            return {middle, 255, 0};
        case 2:
            return {0, 255, middle};
        case 3:
            return {0, middle, 255};
        case 4:
            return {middle, 0, 255};
        default:
            return {255, 0, middle};
    }
}

EffectRow ColorGradientRow(const std::string& name, Point at, int strength, int tolerance) {
    return {"ColorGradient_" + name, With<ColorGradient>(at, strength),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const double kPi = std::acos(-1.0);
                const Rgba p = source.At(x, y);
                // The y axis points down, so the angle grows clockwise.
                double angle = std::atan2(y - at.y, x - at.x);
                if (strength < 0) angle = -angle;
                if (angle < 0) angle += 2 * kPi;
                const auto hue = Hue(std::min(angle * 3 / kPi, 5.9999999));
                const double luma = Luma(p), own = 0.299 * hue[0] + 0.587 * hue[1] + 0.114 * hue[2];
                std::array<double, 3> color = {p.red + 0.0, p.green + 0.0, p.blue + 0.0};
                for (std::size_t i = 0; i < 3; ++i) {
                    const double ramp =
                        luma <= own ? hue[i] * luma / own : hue[i] + (255 - hue[i]) * (luma - own) / (255 - own);
                    color[i] += (ramp - color[i]) * std::abs(strength) / 100.0;
                }
                return color;
            }),
            tolerance};
}

}  // namespace

std::vector<EffectRow> AroundPointRows() {
    return {
        Brightness2Row("spotlight", {62, 100}, -100),         Brightness2Row("brighter", {20, 10}, 80),
        Brightness2Row("outside", {999, 999}, 100),           Brightness2Row("far_outside", {-100000, 40}, -60),
        Saturation2Row("default", {60, 50}, -100, 1),         Saturation2Row("outside", {-40, 500}, 100, 1),
        ColorGradientRow("anticlockwise", {62, 50}, -100, 1), ColorGradientRow("clockwise", {10, 90}, 100, 1),
        ColorGradientRow("faint", {250, 100}, 30, 1),
    };
}

}  // namespace kelu::engine_test
