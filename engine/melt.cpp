// The picture sags in broad folds, and over it run drops: each begins at the strongest edge from bright to dark of its
// column and is filled with what lies just above that edge. Nothing moves sideways, so a pixel is the mix of two of its
// column.
// SPDX-License-Identifier: MIT
#include "engine/melt.h"

#include <algorithm>
#include <cmath>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/melt.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/lanes_inl.h"
#include "engine/random.h"

#ifndef KELU_ENGINE_MELT_ONCE
#define KELU_ENGINE_MELT_ONCE
namespace kelu::engine {

struct Drop {
    float middle, half;   // image pixels: its column, and half its width
    float begin, length;  // image pixels
};

// A row of a drop.
struct DropRow {
    float middle, thick;  // half its thickness here
    float reach;          // what of it is seen here, at the round tip less
    float begun;          // 0 where it begins, 1 where it stands alone
    float from;           // the row that it shows
};

// Columns are sagged so many at once, over one another for some rows: the next row wants nearly the same pixels.
constexpr int kSagSpan = 256;
constexpr int kSagRows = 32;

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

using Words = hn::Vec<hn::RepartitionToNarrow<PixelTag>>;
constexpr hn::RepartitionToNarrow<PixelTag> kWords{};

// All channels of `a` and `b`, of the latter `weight` of 256.
HWY_INLINE Pixels MixBytes(Pixels a, Pixels b, Pixels weight) {
    const Words ofB = hn::BitCast(kWords, hn::Or(weight, hn::ShiftLeft<16>(weight)));
    const Words ofA = hn::Sub(hn::Set(kWords, 256), ofB);
    const auto mix = [&](Words x, Words y) HWY_ATTR {
        const Words sum = hn::Add(hn::Mul(x, ofA), hn::Mul(y, ofB));
        return hn::BitCast(kPixels, hn::ShiftRight<8>(hn::Add(sum, hn::Set(kWords, 128))));
    };
    const auto even = [](Pixels p) HWY_ATTR { return hn::BitCast(kWords, hn::And(p, All(0x00ff00ffu))); };
    const auto odd = [](Pixels p) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(kWords, p)); };
    return hn::Or(mix(even(a), even(b)), hn::ShiftLeft<8>(mix(odd(a), odd(b))));
}

// `count` pixels of row `y`, each from `sag` · `part` pixels farther up. Whole vectors of `sag` are read.
void SagSpan(const ImageView& source, const float* sag, float part, int x, int y, int count, std::uint32_t* out) {
    HWY_ALIGN std::int32_t at[kSagSpan], weights[kSagSpan];
    HWY_ALIGN std::uint32_t above[kSagSpan], below[kSagSpan];
    const int step = static_cast<int>(source.stride / 4), next = source.height > 1 ? step : 0;
    for (int i = 0; i < count; i += kLanes) {
        const Floats down = hn::Mul(hn::LoadU(kFloats, sag + i), All(part * 256));
        const Ints place = hn::Max(hn::Sub(All(y * 256), hn::ConvertTo(kInts, down)), hn::Zero(kInts));
        const Ints row = hn::Min(hn::ShiftRight<8>(place), All(std::max(source.height - 2, 0)));
        hn::Store(hn::Sub(place, hn::ShiftLeft<8>(row)), kInts, weights + i);
        hn::Store(hn::Add(hn::Mul(row, All(step)), hn::BitCast(kInts, ColumnNumbers(x + i))), kInts, at + i);
    }
    const std::uint32_t* const base = source.Row(0);
    for (int i = 0; i < count; ++i) {
        above[i] = base[at[i]];
        below[i] = base[at[i] + next];
    }
    for (int i = 0; i < count; i += kLanes) {
        const Pixels mixed = MixBytes(hn::Load(kPixels, above + i), hn::Load(kPixels, below + i),
                                      hn::BitCast(kPixels, hn::Load(kInts, weights + i)));
        if (i + kLanes <= count) {
            hn::StoreU(mixed, kPixels, out + i);
        } else {
            std::uint32_t few[kLanes];
            hn::StoreU(mixed, kPixels, few);
            std::copy(few, few + (count - i), out + i);
        }
    }
}

struct DropKernel {
    DropRow row;
    const std::uint32_t *above, *below;
    std::uint32_t weight;

    HWY_INLINE Pixels operator()(Pixels pixels, Pixels a, Pixels b, int x) const {
        const Floats off = hn::Sub(Columns(x), All(row.middle));
        const Floats part = Clamp01(hn::Sub(All(row.reach + 0.5f), hn::Abs(off)));
        const Floats u = hn::Div(off, All(row.thick)), aside = hn::Add(u, All(0.45f));
        const Floats light = hn::Sub(All(1.0f), hn::Mul(All(0.3f * row.begun), hn::Mul(u, u)));
        const Floats shine = hn::Max(hn::Sub(All(1.0f), hn::Mul(All(9.0f), hn::Mul(aside, aside))), hn::Zero(kFloats));
        const Floats gloss = hn::Mul(shine, All(40 * row.begun));
        const Pixels shown = MixBytes(a, b, All(weight));
        const Channels own = Split(shown);
        const auto lit = [&](Floats c) HWY_ATTR { return hn::Min(hn::Add(hn::Mul(c, light), gloss), All(255.0f)); };
        const auto alpha = [](Pixels p) HWY_ATTR { return ToFloats(hn::ShiftRight<24>(p)); };
        return Join(Mix(Split(pixels), Channels{lit(own.blue), lit(own.green), lit(own.red)}, part),
                    hn::ShiftLeft<24>(ToByte(Mix(alpha(pixels), alpha(shown), part))));
    }
};

void DrawDropRow(const ImageView& source, const DropRow& row, std::uint32_t* out) {
    const float within = std::clamp(row.from, 0.0f, static_cast<float>(source.height - 1));
    const int y = static_cast<int>(within);
    const DropKernel kernel{row, source.Row(y), source.Row(std::min(y + 1, source.height - 1)),
                            static_cast<std::uint32_t>((within - static_cast<float>(y)) * 256)};
    const int end = std::min(source.width, static_cast<int>(row.middle + row.reach + 2));
    for (int x = std::max(0, static_cast<int>(row.middle - row.reach - 1)); x < end; x += kLanes) {
        if (x + kLanes <= source.width) {
            hn::StoreU(kernel(hn::LoadU(kPixels, out + x), hn::LoadU(kPixels, kernel.above + x),
                              hn::LoadU(kPixels, kernel.below + x), x),
                       kPixels, out + x);
            continue;
        }
        std::uint32_t few[3][kLanes] = {};
        const std::uint32_t* const rows[] = {out, kernel.above, kernel.below};
        for (int i = 0; i < 3; ++i) std::copy(rows[i] + x, rows[i] + source.width, few[i]);
        hn::StoreU(kernel(hn::LoadU(kPixels, few[0]), hn::LoadU(kPixels, few[1]), hn::LoadU(kPixels, few[2]), x),
                   kPixels, few[0]);
        std::copy(few[0], few[0] + (source.width - x), out + x);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(SagSpan);
HWY_EXPORT(DrawDropRow);

constexpr int kEffect = 30;
constexpr int kFolds = 12, kDrops = 44;  // over the picture's width
// Luma is looked at in so many rows and in one column a drop: every pixel would not change what is seen.
constexpr int kRowsLookedAt = 256;
constexpr int kEdgeRows = 8;  // of these, above and below an edge

// Luma of one of some rows of one column, 0 to 255.
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

}  // namespace

void Melt(const ImageView& source, const MutableImageView& target, const Run& run) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    constexpr int kRoom = 16;  // whole vectors are read
    std::vector<float> sag;    // pixels, at the bottom
    for (int x = 0; x < source.width + kRoom; ++x)
        sag.push_back(height * 0.18f * SmoothNoise(static_cast<float>(x) / width * kFolds, RandomRow(0, kEffect, 0)));
    const std::vector<Drop> drops = FindDrops(source);

    SplitRows(
        run, source.height, source.width,
        [&](int begin, int end) {
            for (int x = 0; x < source.width; x += kSagSpan)
                for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(SagSpan)
            (source, sag.data() + x, Smoothstep(static_cast<float>(y) / height), x, y,
             std::min(kSagSpan, source.width - x), target.Row(y) + x);
            for (const Drop& drop : drops) {
                // The edge has sagged with the picture.
                const auto middle = static_cast<std::size_t>(std::min(source.width - 1, static_cast<int>(drop.middle)));
                const float from = drop.begin + sag[middle] * Smoothstep(drop.begin / height);
                const float tip = from + drop.length;
                if (drop.length <= 0) continue;
                const int last = std::min(end, static_cast<int>(tip) + 2);
                for (int y = std::max(begin, static_cast<int>(from)); y < last; ++y) {
                    const float along = static_cast<float>(y) - from;
                    // It flows together, thins, and swells towards its round tip.
                    const float gather = 1 / (1 + along / drop.half);
                    const float thick =
                        drop.half * (0.6f + 0.5f * gather * gather + 0.4f * Smoothstep(along / drop.length));
                    const float round = std::max(0.0f, static_cast<float>(y) - (tip - thick));
                    const float reach = std::sqrt(std::max(0.0f, thick * thick - round * round));
                    // It begins in its colour's own edge and leaves that within its width.
                    const float begun = Smoothstep(along / (3 * drop.half + 1));
                    HWY_DYNAMIC_DISPATCH(DrawDropRow)
                    (source, {drop.middle, thick, reach, begun, drop.begin - 2 - 0.15f * along}, target.Row(y));
                }
            }
        },
        kSagRows);
}

}  // namespace kelu::engine
#endif
