// Plain definitions of the maps of single channels.
// SPDX-License-Identifier: MIT
#include "engine/channel_maps.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

// The same map for the three channels.
template <class Map>
Definition EachChannel(Map map) {
    return EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
        const Rgba p = source.At(x, y);
        return {map(p.red), map(p.green), map(p.blue)};
    });
}

EffectRow Brightness1Row(const std::string& name, int amount) {
    return {"Brightness1_" + name, [=](auto& s, auto& t, auto& run) { Brightness1(s, t, amount, run); },
            EachChannel([=](int c) { return c + 255 * amount / 100.0; })};
}

EffectRow ContrastRow(const std::string& name, int amount, int tolerance) {
    return {"Contrast_" + name, [=](auto& s, auto& t, auto& run) { Contrast(s, t, amount, run); },
            EachChannel([=](int c) { return (c - 128) * (100 + amount) * (100 + amount) / 10000.0 + 128; }), tolerance};
}

EffectRow LevelsRow(const std::string& name, Color black, Color white, int tolerance = 1) {
    return {"ColorCorrection_" + name, [=](auto& s, auto& t, auto& run) { ColorCorrection(s, t, black, white, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const auto level = [](int c, int from, int to) {
                    if (to <= from) return c >= from ? 255.0 : 0.0;
                    return (c - from) * 255.0 / (to - from);
                };
                return {level(p.red, black.red, white.red), level(p.green, black.green, white.green),
                        level(p.blue, black.blue, white.blue)};
            }),
            tolerance};
}

EffectRow NegativeRow(const std::string& name, bool red, bool green, bool blue) {
    return {"Negative_" + name, [=](auto& s, auto& t, auto& run) { Negative(s, t, red, green, blue, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                return {red ? 255.0 - p.red : p.red, green ? 255.0 - p.green : p.green, blue ? 255.0 - p.blue : p.blue};
            })};
}

EffectRow PosterizeRow(int red, int green, int blue) {
    return {"Posterize_" + std::to_string(red) + std::to_string(green) + std::to_string(blue),
            [=](auto& s, auto& t, auto& run) { Posterize(s, t, red, green, blue, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const auto level = [](int c, int bits) {
                    const int bands = 1 << bits, band = c * bands / 256;
                    return band * 255.0 / (bands - 1);
                };
                const Rgba p = source.At(x, y);
                return {level(p.red, red), level(p.green, green), level(p.blue, blue)};
            })};
}

EffectRow SolarizeRow(const std::string& name, int red, int green, int blue, bool bright) {
    return {"Solarize_" + name, [=](auto& s, auto& t, auto& run) { Solarize(s, t, red, green, blue, bright, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const auto flip = [=](int c, int least) { return (c >= least) == bright ? 255.0 - c : c; };
                const Rgba p = source.At(x, y);
                return {flip(p.red, red), flip(p.green, green), flip(p.blue, blue)};
            })};
}

EffectRow SwapRow(int pair, std::array<double, 3> (*swapped)(const Rgba&)) {
    return {"SwapColors_" + std::to_string(pair), [=](auto& s, auto& t, auto& run) { SwapColors(s, t, pair, run); },
            EachPixel([=](const Picture& source, int x, int y) { return swapped(source.At(x, y)); })};
}

EffectRow TintRow(const std::string& name, Color color, int tolerance) {
    return {"Tint_" + name, [=](auto& s, auto& t, auto& run) { Tint(s, t, color, run); },
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                return {p.red * color.red / 255.0, p.green * color.green / 255.0, p.blue * color.blue / 255.0};
            }),
            tolerance};
}

}  // namespace

std::vector<EffectRow> ChannelMapRows() {
    return {
        Brightness1Row("default", 35),
        Brightness1Row("brightest", 100),
        Brightness1Row("darkest", -100),
        Brightness1Row("half_levels_up", 10),
        Brightness1Row("half_levels_down", -10),
        Brightness1Row("neutral", 0),
        ContrastRow("flat", -100, 0),
        ContrastRow("low", -37, 1),
        ContrastRow("neutral", 0, 0),
        ContrastRow("four_fold", 100, 0),
        LevelsRow("default", {47, 47, 47}, {255, 255, 243}),
        LevelsRow("thresholds", {100, 255, 0}, {100, 0, 0}, 0),
        LevelsRow("steep", {127, 0, 254}, {128, 3, 255}),
        LevelsRow("neutral", {0, 0, 0}, {255, 255, 255}, 0),
        NegativeRow("all", true, true, true),
        NegativeRow("green", false, true, false),
        NegativeRow("none", false, false, false),
        PosterizeRow(1, 2, 3),
        PosterizeRow(4, 5, 6),
        PosterizeRow(7, 8, 2),
        PosterizeRow(8, 8, 8),
        SolarizeRow("default", 140, 140, 140, true),
        SolarizeRow("ends", 0, 255, 1, true),
        SolarizeRow("dark", 0, 255, 90, false),
        SwapRow(0,
                [](const Rgba& p) -> std::array<double, 3> {
                    return {p.red + 0.0, p.blue + 0.0, p.green + 0.0};
                }),
        SwapRow(1,
                [](const Rgba& p) -> std::array<double, 3> {
                    return {p.blue + 0.0, p.green + 0.0, p.red + 0.0};
                }),
        SwapRow(2,
                [](const Rgba& p) -> std::array<double, 3> {
                    return {p.green + 0.0, p.red + 0.0, p.blue + 0.0};
                }),
        TintRow("default", {255, 100, 255}, 1),
        TintRow("black", {0, 0, 0}, 0),
        TintRow("neutral", {255, 255, 255}, 0),
    };
}

}  // namespace kelu::engine_test
