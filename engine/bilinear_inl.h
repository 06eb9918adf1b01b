// kLanes bilinear samples at once, in whole numbers throughout.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_BILINEAR_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_BILINEAR_INL
#undef KELU_ENGINE_BILINEAR_INL
#else
#define KELU_ENGINE_BILINEAR_INL
#endif

#include <hwy/cache_control.h>

#include <cstring>

#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

/// The words at base[at] and base[at + 1] of each lane, `at` not negative. Eight loads of 64 bits are several times as
/// fast as the instructions that gather.
struct Pairs {
    Pixels first, second;

    HWY_INLINE Pairs(const std::uint32_t* base, Ints at) {
        HWY_ALIGN std::uint32_t index[kLanes];
        hn::Store(hn::BitCast(kPixels, at), kPixels, index);
        const hn::CappedTag<std::uint64_t, 1> one;
        const hn::CappedTag<std::uint64_t, 2> two;
        const auto pair = [&](int lane) HWY_ATTR {
            std::uint64_t words;
            std::memcpy(&words, base + index[lane], sizeof words);
            return hn::Set(one, words);
        };
        const auto both = [&](int lane) HWY_ATTR { return hn::Combine(two, pair(lane + 1), pair(lane)); };
#if HWY_MAX_BYTES == 16
        Separate(hn::BitCast(kPixels, both(2)), hn::BitCast(kPixels, both(0)));
#else
        const hn::Repartition<std::uint64_t, PixelTag> all;
        Separate(hn::BitCast(kPixels, hn::Combine(all, both(6), both(4))),
                 hn::BitCast(kPixels, hn::Combine(all, both(2), both(0))));
#endif
    }

 private:
    HWY_INLINE void Separate(Pixels high, Pixels low) {
        first = hn::ConcatEven(kPixels, high, low);
        second = hn::ConcatOdd(kPixels, high, low);
    }
};

class BilinearSampler {
 public:
    explicit BilinearSampler(const ImageView& source)
        : base_(source.Row(0)),
          step_(static_cast<int>(source.stride / 4)),
          lastX_(source.width - 1),
          lastY_(source.height - 1) {}

    /// Places in 1/256 pixel; outside the picture lies the nearest edge pixel.
    HWY_INLINE Pixels operator()(Ints x, Ints y) const {
        x = hn::Min(hn::Max(x, hn::Zero(kInts)), All(lastX_ * 256));
        y = hn::Min(hn::Max(y, hn::Zero(kInts)), All(lastY_ * 256));
        // The left and the upper of two neighbours; on the last column and row all weight is on the second of them.
        const Ints column = hn::Min(hn::ShiftRight<8>(x), All(lastX_ - 1));
        const Ints row = hn::Min(hn::ShiftRight<8>(y), All(std::max(lastY_ - 1, 0)));
        const Pixels right = Weight(hn::Sub(x, hn::ShiftLeft<8>(column)));
        const Pixels below = Weight(hn::Sub(y, hn::ShiftLeft<8>(row)));
        const int toBelow = lastY_ > 0 ? step_ : 0;
        if (HWY_UNLIKELY(lastX_ == 0)) {
            const Pixels top = hn::GatherIndex(kPixels, base_, hn::Mul(row, All(step_)));
            const Pixels bottom = hn::GatherIndex(kPixels, base_ + toBelow, hn::Mul(row, All(step_)));
            return Blend(top, top, bottom, bottom, right, below);
        }

        // Neighbours in the result are often neighbours in the source.
        const int firstColumn = hn::GetLane(column), firstRow = hn::GetLane(row);
        const auto inOneRow =
            hn::And(hn::Eq(column, hn::BitCast(kInts, ColumnNumbers(firstColumn))), hn::Eq(row, All(firstRow)));
        if (hn::AllTrue(kInts, inOneRow)) {
            const std::uint32_t* const top = base_ + static_cast<std::ptrdiff_t>(firstRow) * step_ + firstColumn;
            const std::uint32_t* const bottom = top + toBelow;
            return Blend(hn::LoadU(kPixels, top), hn::LoadU(kPixels, top + 1), hn::LoadU(kPixels, bottom),
                         hn::LoadU(kPixels, bottom + 1), right, below);
        }
        // Scattered reads are slow where they miss the caches. The next result row will mostly need the next source
        // row.
        hwy::Prefetch(base_ + static_cast<std::ptrdiff_t>(std::min(firstRow + kRowsAhead, lastY_)) * step_ +
                      firstColumn);
        const Ints at = hn::Add(hn::Mul(row, All(step_)), column);
        const Pairs top(base_, at), bottom(base_ + toBelow, at);
        return Blend(top.first, top.second, bottom.first, bottom.second, right, below);
    }

 private:
    static constexpr int kRowsAhead = 2;

    // 0 to 256, in both halves of a lane.
    static HWY_INLINE Pixels Weight(Ints part) { return InBoth(hn::BitCast(kPixels, part)); }

    static HWY_INLINE Pixels Blend(Pixels topLeft, Pixels topRight, Pixels bottomLeft, Pixels bottomRight, Pixels right,
                                   Pixels below) {
        // Two channels of a pixel at a time, 16 bits each.
        const auto even = [](Pixels p) HWY_ATTR { return hn::BitCast(kWords, hn::And(p, All(0x00ff00ffu))); };
        const auto odd = [](Pixels p) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(kWords, p)); };
        const Words toRight = hn::BitCast(kWords, right);
        const Shorts toBelow = hn::BitCast(kShorts, hn::ShiftLeft<6>(hn::BitCast(kWords, below)));
        const auto mix = [&](auto&& half) HWY_ATTR {
            // 256 a + (b - a) w, up to 65280; the sum wraps round and back.
            const auto across = [&](Pixels left, Pixels rightOf) HWY_ATTR {
                const Words a = half(left);
                return hn::Add(hn::ShiftLeft<8>(a), hn::Mul(hn::Sub(half(rightOf), a), toRight));
            };
            const Shorts top = hn::BitCast(kShorts, hn::ShiftRight<1>(across(topLeft, topRight)));
            const Shorts bottom = hn::BitCast(kShorts, hn::ShiftRight<1>(across(bottomLeft, bottomRight)));
            // The product is a 1024th, a quarter of what is to be added.
            const Shorts part = hn::MulHigh(hn::Sub(bottom, top), toBelow);
            const Shorts level = hn::Add(hn::Add(top, All16(64)), hn::ShiftLeft<2>(part));
            return hn::BitCast(kWords, hn::ShiftRight<7>(level));
        };
        return hn::BitCast(kPixels, hn::Or(mix(even), hn::ShiftLeft<8>(mix(odd))));
    }

    static HWY_INLINE Shorts All16(std::int16_t value) { return hn::Set(kShorts, value); }

    const std::uint32_t* const base_;
    const int step_;  // pixels from row to row
    const int lastX_, lastY_;
};

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
