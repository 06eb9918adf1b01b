// The picture sags in broad folds and, here and there, in long drops. Nothing moves sideways, so a pixel is the mix of
// two of its column.
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

// Columns are sagged so many at once, over one another for some rows: the next row wants nearly the same pixels.
constexpr int kSagSpan = 256;
constexpr int kSagRows = 32;

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

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
                                      InBoth(hn::BitCast(kPixels, hn::Load(kInts, weights + i))));
        if (i + kLanes <= count) {
            hn::StoreU(mixed, kPixels, out + i);
        } else {
            std::uint32_t few[kLanes];
            hn::StoreU(mixed, kPixels, few);
            std::copy(few, few + (count - i), out + i);
        }
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(SagSpan);

void Melt(const ImageView& source, const MutableImageView& target, const Run& run) {
    constexpr int kEffect = 30, kFolds = 12, kDrops = 18;  // over the picture's width
    constexpr int kRoom = 16;                              // whole vectors are read
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    std::vector<float> sag;  // pixels, at the bottom
    for (int x = 0; x < source.width + kRoom; ++x) {
        const float at = static_cast<float>(x) / width;
        const float fold = SmoothNoise(at * kFolds, RandomRow(0, kEffect, 0)),
                    drop = SmoothNoise(at * kDrops, RandomRow(0, kEffect, 1));
        sag.push_back(height * (0.09f * fold + 0.17f * Smoothstep(drop) * Smoothstep(drop)));
    }
    SplitRows(
        run, source.height, source.width,
        [&](int begin, int end) {
            for (int x = 0; x < source.width; x += kSagSpan)
                for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(SagSpan)
            (source, sag.data() + x, Smoothstep(static_cast<float>(y) / height), x, y,
             std::min(kSagSpan, source.width - x), target.Row(y) + x);
        },
        kSagRows);
}

}  // namespace kelu::engine
#endif
