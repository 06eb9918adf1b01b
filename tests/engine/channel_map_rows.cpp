// Plain definitions of the maps of single channels.
// SPDX-License-Identifier: MIT
#include "engine/channel_maps.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

using Three = std::array<int, 3>;  // red, green, blue

Color Of(const Three& c) { return {c[0], c[1], c[2]}; }

// `map(level, channel)` for the three channels.
template <class Map>
Definition EachChannel(Map map) {
    return EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
        const Rgba p = source.At(x, y);
        return {map(p.red, 0u) + 0.0, map(p.green, 1u) + 0.0, map(p.blue, 2u) + 0.0};
    });
}

EffectRow Brightness1Row(const std::string& name, int amount) {
    return {"Brightness1_" + name, With<Brightness1>(amount),
            EachChannel([=](int c, auto) { return c + 255 * amount / 100.0; })};
}

EffectRow ContrastRow(const std::string& name, int amount, int tolerance) {
    return {"Contrast_" + name, With<Contrast>(amount),
            EachChannel([=](int c, auto) { return (c - 128) * (100 + amount) * (100 + amount) / 10000.0 + 128; }),
            tolerance};
}

EffectRow LevelsRow(const std::string& name, Three black, Three white, int tolerance = 1) {
    return {"ColorCorrection_" + name, With<ColorCorrection>(Of(black), Of(white)), EachChannel([=](int c, auto i) {
                if (white[i] <= black[i]) return c >= black[i] ? 255.0 : 0.0;
                return (c - black[i]) * 255.0 / (white[i] - black[i]);
            }),
            tolerance};
}

EffectRow NegativeRow(const std::string& name, std::array<bool, 3> inverted) {
    return {"Negative_" + name, With<Negative>(inverted[0], inverted[1], inverted[2]),
            EachChannel([=](int c, auto i) { return inverted[i] ? 255 - c : c; })};
}

EffectRow PosterizeRow(Three bits) {
    return {"Posterize_" + std::to_string(100 * bits[0] + 10 * bits[1] + bits[2]),
            With<Posterize>(bits[0], bits[1], bits[2]), EachChannel([=](int c, auto i) {
                const int bands = 1 << bits[i], band = c * bands / 256;
                return band * 255.0 / (bands - 1);
            })};
}

EffectRow SolarizeRow(const std::string& name, Three least, bool bright) {
    return {"Solarize_" + name, With<Solarize>(least[0], least[1], least[2], bright),
            EachChannel([=](int c, auto i) { return (c >= least[i]) == bright ? 255 - c : c; })};
}

EffectRow SwapRow(int pair, Three from) {
    return {"SwapColors_" + std::to_string(pair), With<SwapColors>(pair),
            EachPixel([=](const Picture& source, int x, int y) -> std::array<double, 3> {
                const Rgba p = source.At(x, y);
                const std::array<double, 3> c{p.red + 0.0, p.green + 0.0, p.blue + 0.0};
                const auto at = [&](std::size_t i) { return c[static_cast<std::size_t>(from[i])]; };
                return {at(0), at(1), at(2)};
            })};
}

EffectRow TintRow(const std::string& name, Three color, int tolerance) {
    return {"Tint_" + name, With<Tint>(Of(color)), EachChannel([=](int c, auto i) { return c * color[i] / 255.0; }),
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
        ContrastRow("flat", -100, 0),
        ContrastRow("low", -37, 1),
        ContrastRow("neutral", 0, 0),
        ContrastRow("four_fold", 100, 0),
        LevelsRow("default", {47, 47, 47}, {255, 255, 243}),
        LevelsRow("thresholds", {100, 255, 0}, {100, 0, 0}, 0),
        LevelsRow("steep", {127, 0, 254}, {128, 3, 255}),
        NegativeRow("all", {true, true, true}),
        NegativeRow("green", {false, true, false}),
        PosterizeRow({1, 2, 3}),
        PosterizeRow({4, 5, 6}),
        PosterizeRow({7, 8, 2}),
        SolarizeRow("default", {140, 140, 140}, true),
        SolarizeRow("ends", {0, 255, 1}, true),
        SolarizeRow("dark", {0, 255, 90}, false),
        SwapRow(0, {0, 2, 1}),
        SwapRow(1, {2, 1, 0}),
        SwapRow(2, {1, 0, 2}),
        TintRow("default", {255, 100, 255}, 1),
        TintRow("black", {0, 0, 0}, 0),
    };
}

}  // namespace kelu::engine_test
