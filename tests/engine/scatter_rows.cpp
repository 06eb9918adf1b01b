// Plain definitions of the effects that put pixels, tiles and drops about.
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
                    // First its shadow: a tile's right and lower neighbourhood, the farther off the paler.
                    const int right = std::min(width, std::min(width, left + square) + dx),
                              bottom = std::min(height, top + square) + dy, depth = square / 16;
                    for (int y = top + dy + depth; left + dx < right && y < bottom + depth; ++y)
                        for (int x = left + dx + depth; x < right + depth; ++x) {
                            const int away = std::max(x - right, y - bottom) + 1;
                            if (away < 1 || x < 0 || x >= width || y < 0 || y >= height) continue;
                            const int light = 256 - 128 * (depth + 1 - away) / (depth + 1);
                            const Rgba p = expected.At(x, y);
                            expected.Set(x, y,
                                         {p.red * light / 256, p.green * light / 256, p.blue * light / 256, p.alpha});
                        }
                    const int endX = std::min(width, left + square), endY = std::min(height, top + square);
                    const int edge = (square + 16) / 32;
                    for (int y = top; y < endY; ++y)
                        for (int x = left; x < endX; ++x) {
                            if (x + dx < 0 || x + dx >= width || y + dy < 0 || y + dy >= height) continue;
                            // Lit from the upper left.
                            const auto lit = [&](int c) {
                                if (x - left < edge || y - top < edge) return c + (255 - c) / 4;
                                return endX - x <= edge || endY - y <= edge ? c - c / 4 : c;
                            };
                            const Rgba p = source.At(x, y);
                            expected.Set(x + dx, y + dy, {lit(p.red), lit(p.green), lit(p.blue), p.alpha});
                        }
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

// Every pixel by itself: all drops that touch it, from the lowest up.
EffectRow BlobsRow(int radius, int spacing) {
    return {"Blobs_" + std::to_string(radius) + "_" + std::to_string(spacing),
            [=](auto& s, auto& t, auto& run) { Blobs(s, t, radius, spacing, run); },
            [=](const Picture& source, Picture& expected) {
                const bool shadows = radius >= 3;
                const int touches = shadows ? radius + (radius + 2) / 3 : radius;
                const int step = std::max({spacing, (radius + 1) / 2, 2}), margin = touches / step + 1;
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
                            const int reach = radius / 8, apart = std::max(1, reach / 3), each = reach / apart;
                            for (int dy = -each; dy <= each; ++dy)
                                for (int dx = -each; dx <= each; ++dx)
                                    sum += source.At(drop.x + dx * apart, drop.y + dy * apart).*channel;
                            drop.color.*channel = Rounded(sum / std::pow(2 * each + 1, 2));
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
                            const int dx = x - drop.x, dy = y - drop.y, far = std::max(std::abs(dx), std::abs(dy));
                            if (far > touches) continue;
                            const double r = radius + 0.5, u = dx / r, v = dy / r;
                            const double inward = std::clamp((1.15 - std::hypot(u - 0.12, v - 0.12)) / 0.3, 0.0, 1.0);
                            const double shadow = shadows ? 0.7 * inward * inward * (3 - 2 * inward) : 0;
                            const double cover = far > radius ? 0 : std::clamp(r - std::hypot(dx, dy), 0.0, 1.0);
                            const double height = std::sqrt(std::max(0.0, 1 - u * u - v * v));
                            const double lambert = std::max(0.0, -(u + v) / 2 + height * std::numbers::sqrt2 / 2);
                            const double luma =
                                0.299 * drop.color.red + 0.587 * drop.color.green + 0.114 * drop.color.blue;
                            const double gloss = (50 * std::pow(lambert, 14) + 160 * std::pow(lambert, 50)) *
                                                 (104 + 199 * luma / 256) / 256;
                            for (std::size_t c = 0; c < 4; ++c) {
                                const double plain = drop.color.*kChannels[c];
                                // Shadow and ball are one layer.
                                const double both = cover + (1 - cover) * shadow;
                                const double lit = plain * (0.64 + 0.56 * lambert) + gloss;
                                const double level = both > 0 ? std::min(255.0, lit * cover / both) : 0;
                                result[c] += both * ((c < 3 ? level : plain) - result[c]);
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
        ReverseRow(),  TileRow(100, 40), TileRow(7, 100), TileRow(1, 50),  SprayRow(2),       SprayRow(15),
        SprayRow(100), BlobsRow(10, 6),  BlobsRow(1, 1),  BlobsRow(3, 20), BlobsRow(100, 40),
    };
}

}  // namespace kelu::engine_test
