// Plain definitions of the effects that look at luma.
// SPDX-License-Identifier: MIT
#include "engine/luma_maps.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

EffectRow GrayscaleRow(const std::string& name, int weighted) {
    return {name, With<Grayscale>(weighted),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const double gray = weighted ? Luma(p) : (p.red + p.green + p.blue) / 3.0;
                return {gray, gray, gray};
            })};
}

EffectRow SepiaRow(int strength) {
    return {"Sepia_" + std::to_string(strength), With<Sepia>(strength),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const double luma = Luma(source.At(x, y));
                const double left = 1 - strength / 100.0, tint = (1 - left * left) * 2.4 * luma * (255 - luma) / 255;
                return {luma + 0.36 * tint, luma - 0.085 * tint, luma - 0.50 * tint};
            }),
            1};
}

EffectRow BlackWhiteRow(int threshold) {
    return {"BlackWhite_" + std::to_string(threshold), With<BlackWhite>(threshold),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const double value = Luma(source.At(x, y)) >= threshold ? 255 : 0;
                return {value, value, value};
            })};
}

EffectRow ColorizeRow(const std::string& name, Color color) {
    return {"Colorize_" + name, With<Colorize>(color),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const double luma = Luma(source.At(x, y)), own = Luma({color.red, color.green, color.blue});
                const auto ramp = [=](double c) {
                    if (luma == 0) return 0.0;
                    if (luma <= own) return c * luma / own;
                    return c + (255 - c) * (luma - own) / (255 - own);
                };
                return {ramp(color.red), ramp(color.green), ramp(color.blue)};
            }),
            1};
}

EffectRow FalseColorRow(const std::string& name, Color dark, Color bright) {
    return {"FalseColor_" + name, With<FalseColor>(dark, bright),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const double luma = Luma(source.At(x, y));
                const auto ramp = [=](double from, double to) { return from + (to - from) * luma / 255; };
                return {ramp(dark.red, bright.red), ramp(dark.green, bright.green), ramp(dark.blue, bright.blue)};
            }),
            1};
}

EffectRow Saturation1Row(const std::string& name, int amount, int tolerance) {
    return {
        "Saturation1_" + name, With<Saturation1>(amount),
        EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
            const Rgba p = source.At(x, y);
            const double luma = Luma(p), factor = (100 + amount) / 100.0;
            return {luma + (p.red - luma) * factor, luma + (p.green - luma) * factor, luma + (p.blue - luma) * factor};
        }),
        tolerance};
}

}  // namespace

std::vector<EffectRow> LumaMapRows() {
    return {
        GrayscaleRow("Grayscale_proportional", 0),
        GrayscaleRow("Grayscale_weighted", 1),
        SepiaRow(0),
        SepiaRow(30),
        SepiaRow(100),
        BlackWhiteRow(0),
        BlackWhiteRow(1),
        BlackWhiteRow(128),
        BlackWhiteRow(160),
        BlackWhiteRow(255),
        ColorizeRow("red", {255, 0, 0}),
        ColorizeRow("black", {0, 0, 0}),
        ColorizeRow("white", {255, 255, 255}),
        ColorizeRow("faint_blue", {0, 0, 1}),
        FalseColorRow("default", {20, 20, 0}, {200, 100, 50}),
        FalseColorRow("falling", {255, 128, 0}, {0, 127, 255}),
        Saturation1Row("gray", -100, 0),
        Saturation1Row("pale", -33, 1),
        Saturation1Row("neutral", 0, 0),
        Saturation1Row("double", 100, 0),
    };
}

}  // namespace kelu::engine_test
