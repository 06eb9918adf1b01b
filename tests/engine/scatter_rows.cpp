// Plain definitions of the effects that put pixels, streaks, tiles and drops about.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <tuple>

#include "engine/blobs.h"
#include "engine/random.h"
#include "engine/rearrange.h"
#include "engine/wind.h"
#include "tests/engine/effect_rows.h"

namespace kelu::engine_test {
namespace {

using namespace engine;

constexpr int Rgba::*kChannels[] = {&Rgba::red, &Rgba::green, &Rgba::blue, &Rgba::alpha};

EffectRow ReverseRow() {
    return {"Reverse", [](auto& s, auto& t, auto& run) { Reverse(s, t, run); },
            [](const Picture& source, Picture& expected) {
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) expected.Set(x, y, source.At(source.Width() - 1 - x, y));
            },
            0, false};
}

EffectRow TileRow(int side, int percent) {
    return {
        "Tile_" + std::to_string(side) + "_" + std::to_string(percent),
        [=](auto& s, auto& t, auto& run) { Tile(s, t, side, percent, run); },
        [=](const Picture& source, Picture& expected) {
            const int width = source.Width(), height = source.Height();
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    const Rgba p = source.At(x, y);
                    expected.Set(x, y, {Rounded(p.red / 4.0), Rounded(p.green / 4.0), Rounded(p.blue / 4.0), p.alpha});
                }
            const int square = std::min(side, std::max(width, height));
            const int reach = (square * percent + 50) / 100;
            const auto shift = [=](int row, int column, int stream) {
                const double unit = RandomRow(row, 44, stream)(column) / 4294967296.0;
                return static_cast<int>(unit * (2 * reach + 1)) - reach;
            };
            for (int top = 0; top < height; top += square)
                for (int left = 0; left < width; left += square) {
                    const int dx = shift(top / square, left / square, 0), dy = shift(top / square, left / square, 1);
                    for (int y = top; y < std::min(height, top + square); ++y)
                        for (int x = left; x < std::min(width, left + square); ++x)
                            if (x + dx >= 0 && x + dx < width && y + dy >= 0 && y + dy < height)
                                expected.Set(x + dx, y + dy, source.At(x, y));
                }
        },
        0, false};
}

EffectRow SprayRow(int radius) {
    return {"Spray_" + std::to_string(radius), [=](auto& s, auto& t, auto& run) { Spray(s, t, radius, run); },
            [=](const Picture& source, Picture& expected) {
                std::vector<std::pair<int, int>> disc;
                for (int dy = -radius; dy <= radius; ++dy)
                    for (int dx = -radius; dx <= radius; ++dx)
                        if (dx * dx + dy * dy <= radius * radius) disc.emplace_back(dx, dy);
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) {
                        const std::size_t half = RandomRow(y, 42, 0)(x) >> 16;
                        const auto [dx, dy] = disc[half * disc.size() / 65536];
                        expected.Set(x, y, source.At(x + dx, y + dy));
                    }
            },
            0, false};
}

// Follows each line of pixels along the vector, in the same 256ths of a level: which of streak and picture is the
// brighter must come out alike.
EffectRow WindRow(int vx, int vy) {
    const auto name = [](int n) { return (n < 0 ? "_m" : "_") + std::to_string(std::abs(n)); };
    return {"Wind" + name(vx) + name(vy), [=](auto& s, auto& t, auto& run) { Wind(s, t, vx, vy, run); },
            [=](const Picture& source, Picture& expected) {
                const bool alongRows = std::abs(vx) >= std::abs(vy);
                const int length = std::max(std::abs(vx), std::abs(vy));
                const int majorSize = alongRows ? source.Width() : source.Height();
                const bool backward = (alongRows ? vx : vy) < 0;
                const double slope = static_cast<double>(alongRows ? vy : vx) / (alongRows ? vx : vy);
                const int reach = source.Width() + source.Height();
                for (int line = -reach; line < reach; ++line) {
                    const float steps =
                        std::max(1.0f, static_cast<float>(length) * (0.35f + 0.65f * RandomRow(0, 47, 0).Unit(line)));
                    const int growth =
                        std::min(65535, static_cast<int>(std::ceil(2 * 255 * 256 / (steps * (steps + 1)))));
                    std::array<int, 4> streak{}, loss{};
                    for (int i = 0; i < majorSize; ++i) {
                        const int major = backward ? majorSize - 1 - i : i;
                        const int minor = line + static_cast<int>(std::floor(major * slope + 0.5));
                        const int x = alongRows ? major : minor, y = alongRows ? minor : major;
                        if (x < 0 || x >= source.Width() || y < 0 || y >= source.Height()) continue;
                        const Rgba here = source.At(x, y);
                        Rgba out;
                        for (std::size_t c = 0; c < 4; ++c) {
                            const int fresh = here.*kChannels[c] * 256;
                            loss[c] = std::min(65535, loss[c] + growth);
                            streak[c] = std::max(fresh, streak[c] - loss[c]);
                            if (streak[c] == fresh) loss[c] = 0;
                            out.*kChannels[c] = (streak[c] + 128) / 256;
                        }
                        expected.Set(x, y, out);
                    }
                }
            },
            0, false};
}

// Every pixel by itself: all drops that touch it, from the lowest up.
EffectRow BlobsRow(int radius, int spacing) {
    return {"Blobs_" + std::to_string(radius) + "_" + std::to_string(spacing),
            [=](auto& s, auto& t, auto& run) { Blobs(s, t, radius, spacing, run); },
            [=](const Picture& source, Picture& expected) {
                const int step = std::max(spacing, (radius + 3) / 4), margin = radius / step + 1;
                const int columns = (source.Width() - 1) / step + 1 + 2 * margin;
                const int rows = (source.Height() - 1) / step + 1 + 2 * margin;
                struct Drop {
                    std::uint32_t order;
                    int row, column, x, y;
                    Rgba color;
                };
                std::vector<Drop> drops;
                for (int row = 0; row < rows; ++row)
                    for (int column = 0; column < columns; ++column) {
                        const auto jitter = [&](int stream) {
                            return static_cast<int>(RandomRow(row, 7, stream)(column) / 4294967296.0 * step);
                        };
                        Drop drop{RandomRow(row, 7, 2)(column),      row, column, (column - margin) * step + jitter(0),
                                  (row - margin) * step + jitter(1), {}};
                        for (const auto channel : kChannels) {
                            double sum = 0;
                            for (int dy = -(step / 2); dy <= step / 2; ++dy)
                                for (int dx = -(step / 2); dx <= step / 2; ++dx)
                                    sum += source.At(drop.x + dx, drop.y + dy).*channel;
                            drop.color.*channel = Rounded(sum / std::pow(step / 2 * 2 + 1, 2));
                        }
                        drops.push_back(drop);
                    }
                std::sort(drops.begin(), drops.end(), [](const Drop& a, const Drop& b) {
                    return std::tie(a.order, a.row, a.column) < std::tie(b.order, b.row, b.column);
                });
                for (int y = 0; y < source.Height(); ++y)
                    for (int x = 0; x < source.Width(); ++x) {
                        std::array<double, 4> result;
                        for (std::size_t c = 0; c < 4; ++c) result[c] = source.At(x, y).*kChannels[c];
                        for (const Drop& drop : drops) {
                            const int dx = x - drop.x, dy = y - drop.y;
                            const double r = radius + 0.5, cover = std::clamp(r - std::hypot(dx, dy), 0.0, 1.0);
                            if (cover == 0 || std::abs(dx) > radius || std::abs(dy) > radius) continue;
                            const double height = std::sqrt(std::max(0.0, 1 - (dx * dx + dy * dy) / (r * r)));
                            const double lambert = std::max(0.0, -(dx + dy) / r / 2 + height * std::numbers::sqrt2 / 2);
                            for (std::size_t c = 0; c < 4; ++c) {
                                const double plain = drop.color.*kChannels[c];
                                const double lit =
                                    std::min(255.0, plain * (0.45 + 0.65 * lambert) + 70 * std::pow(lambert, 24));
                                result[c] += cover * ((c < 3 ? lit : plain) - result[c]);
                            }
                        }
                        expected.Set(x, y,
                                     {Rounded(result[0]), Rounded(result[1]), Rounded(result[2]), Rounded(result[3])});
                    }
            },
            2, false};
}

}  // namespace

std::vector<EffectRow> ScatterRows() {
    return {
        ReverseRow(),  TileRow(100, 40), TileRow(7, 100),  TileRow(1, 50),    SprayRow(2),    SprayRow(15),
        SprayRow(100), WindRow(25, -10), WindRow(-100, 0), WindRow(-40, 40),  WindRow(3, 50), WindRow(-20, -61),
        WindRow(1, 0), BlobsRow(10, 6),  BlobsRow(3, 20),  BlobsRow(100, 40),
    };
}

}  // namespace kelu::engine_test
