// The picture sags in broad folds, and over it run drops: each begins at the strongest edge from bright to dark of its
// column and is filled with what lies just above that edge.
// SPDX-License-Identifier: MIT
#include "engine/melt.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/random.h"
#include "engine/warp.h"

namespace kelu::engine {
namespace {

constexpr int kEffect = 30;
constexpr int kFolds = 12, kDrops = 44;  // over the picture's width
// Luma is looked at in so many rows and in one column a drop: every pixel would not change what is seen.
constexpr int kRowsLookedAt = 256;
constexpr int kEdgeRows = 8;  // of these, above and below an edge

struct Drop {
    float middle, half;   // image pixels: its column, and half its width
    float begin, length;  // image pixels
};

// Mean luma of some rows of one column, 0 to 255.
float LumaAt(const ImageView& source, int x, int row, int rows) {
    const std::uint32_t p = source.Row(static_cast<int>(std::int64_t{row} * source.height / rows))[x];
    return static_cast<float>(299 * (p >> 16 & 0xff) + 587 * (p >> 8 & 0xff) + 114 * (p & 0xff)) / 1000;
}

// One drop in each of kDrops columns of the picture, left to right; neighbours may touch.
std::vector<Drop> FindDrops(const ImageView& source) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    const int rows = std::min(source.height, kRowsLookedAt), reach = std::max(1, rows / (kRowsLookedAt / kEdgeRows));
    std::vector<Drop> drops;
    for (int i = 0; i < kDrops; ++i) {
        const auto random = [i](int stream) { return RandomRow(0, kEffect, 2 + stream).Unit(i); };
        const float middle = (static_cast<float>(i) + 0.3f + 0.4f * random(0)) * width / kDrops;
        const float half = (0.2f + 0.3f * random(1) * random(1)) * width / kDrops;
        const int x = std::min(source.width - 1, static_cast<int>(middle));
        std::vector<float> sums{0};
        for (int row = 0; row < rows; ++row) sums.push_back(sums.back() + LumaAt(source, x, row, rows));
        // Of the upper three quarters; chance has a say, so that drops don't stand in a row.
        int begin = 0;
        float best = 0;
        for (int row = reach; row < rows * 3 / 4 && row + reach <= rows; ++row) {
            const auto at = static_cast<std::size_t>(row), far = static_cast<std::size_t>(reach);
            const float step = 2 * sums[at] - sums[at - far] - sums[at + far];
            const float wanted = step * (0.5f + RandomRow(1 + i, kEffect, 2).Unit(row / (2 * reach)));
            if (wanted > best) {
                best = wanted;
                begin = row;
            }
        }
        const float fall = random(2);
        const float from = static_cast<float>(static_cast<std::int64_t>(begin) * source.height / rows);
        drops.push_back({middle, half, from, best > 0 ? height * (0.02f + 0.24f * fall * fall) : 0});
    }
    return drops;
}

// A pixel of the source with all four channels between two rows.
std::uint32_t Between(const ImageView& source, int x, float y) {
    const float within = std::clamp(y, 0.0f, static_cast<float>(source.height - 1));
    const int row = static_cast<int>(within);
    const auto part = static_cast<std::uint32_t>((within - static_cast<float>(row)) * 256);
    const std::uint32_t a = source.Row(row)[x], b = source.Row(std::min(row + 1, source.height - 1))[x];
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 32; shift += 8)
        mixed |= ((a >> shift & 0xff) * (256 - part) + (b >> shift & 0xff) * part + 128) >> 8 << shift;
    return mixed;
}

// `drop` over a part of `pixel`, 0 to 1, its colour times `light` plus `gloss`.
std::uint32_t Over(std::uint32_t pixel, std::uint32_t drop, float part, float light, float gloss) {
    std::uint32_t mixed = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const float below = static_cast<float>(pixel >> shift & 0xff), own = static_cast<float>(drop >> shift & 0xff);
        const float lit = shift < 24 ? std::min(255.0f, own * light + gloss) : own;
        mixed |= static_cast<std::uint32_t>(below + (lit - below) * part + 0.5f) << shift;
    }
    return mixed;
}

}  // namespace

void Melt(const ImageView& source, const MutableImageView& target, const Run& run) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    std::vector<float> sag;  // pixels, at the bottom
    for (int x = 0; x < source.width; ++x)
        sag.push_back(height * 0.18f * SmoothNoise(static_cast<float>(x) / width * kFolds, RandomRow(0, kEffect, 0)));
    const std::vector<Drop> drops = FindDrops(source);

    Passes passes(run, 2);
    Warp(source, target, passes, [&](int x, int y, int count, Places& places) {
        const float part = Smoothstep(static_cast<float>(y) / height);
        for (int i = 0; i < count; ++i) {
            places.x[i] = (x + i) * kPlaceOne;
            places.y[i] = y * kPlaceOne - static_cast<int>(sag[static_cast<std::size_t>(x + i)] * part * kPlaceOne);
        }
    });
    passes.Split(source.height, source.width / 2, [&](int begin, int end) {
        for (const Drop& drop : drops) {
            // The edge has sagged with the picture.
            const auto middle = std::min(static_cast<std::size_t>(drop.middle), sag.size() - 1);
            const float from = drop.begin + sag[middle] * Smoothstep(drop.begin / height);
            const float tip = from + drop.length;
            if (drop.length <= 0 || from >= static_cast<float>(end) || tip + 1 < static_cast<float>(begin)) continue;
            const int left = std::max(0, static_cast<int>(drop.middle - 2 * drop.half)),
                      right = std::min(source.width - 1, static_cast<int>(drop.middle + 2 * drop.half + 1));
            for (int y = std::max(begin, static_cast<int>(from)); y < std::min(end, static_cast<int>(tip) + 2); ++y) {
                const float along = static_cast<float>(y) - from;
                // It flows together, thins, and swells towards its round tip.
                const float gather = 1 / (1 + along / drop.half);
                const float thick =
                    drop.half * (0.6f + 1.1f * gather * gather + 0.4f * Smoothstep(along / drop.length));
                const float round = std::max(0.0f, static_cast<float>(y) - (tip - thick));
                const float reach = std::sqrt(std::max(0.0f, thick * thick - round * round));
                // It begins in its colour's own edge and leaves that within its width.
                const float begun = Smoothstep(along / (3 * drop.half + 1));
                for (int x = left; x <= right; ++x) {
                    const float off = static_cast<float>(x) - drop.middle;
                    const float part = std::clamp(reach - std::abs(off) + 0.5f, 0.0f, 1.0f);
                    if (part <= 0) continue;
                    const float u = off / thick;
                    const float light = 1 - 0.3f * begun * u * u;
                    const float shine = std::max(0.0f, 1 - 9 * (u + 0.45f) * (u + 0.45f));
                    target.Row(y)[x] = Over(target.Row(y)[x], Between(source, x, drop.begin - 2 - 0.15f * along), part,
                                            light, 40 * begun * shine);
                }
            }
        }
    });
}

}  // namespace kelu::engine
