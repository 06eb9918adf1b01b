// kLanes bilinear samples at once, in whole numbers throughout.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_BILINEAR_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_BILINEAR_INL
#undef KELU_ENGINE_BILINEAR_INL
#else
#define KELU_ENGINE_BILINEAR_INL
#endif

#include "effects/engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

class BilinearSampler {
 public:
    explicit BilinearSampler(const ImageView& source)
        : source_(source),
          step_(static_cast<int>(source.stride / 4)),
          lastX_(source.width - 1),
          lastY_(source.height - 1) {}

    /// Places in 1/256 pixel; outside the picture lies the nearest edge pixel.
    HWY_INLINE Pixels operator()(Ints x, Ints y) const {
        x = hn::Min(hn::Max(x, hn::Zero(kInts)), All(lastX_ * 256));
        y = hn::Min(hn::Max(y, hn::Zero(kInts)), All(lastY_ * 256));
        const Ints column = hn::ShiftRight<8>(x), row = hn::ShiftRight<8>(y);
        const Pixels right = Weight(x), below = Weight(y);

        // Neighbours in the result are often neighbours in the source: no gathering then.
        const int firstColumn = hn::GetLane(column), firstRow = hn::GetLane(row);
        const auto inOneRow = hn::And(hn::Eq(column, hn::Iota(kInts, firstColumn)), hn::Eq(row, All(firstRow)));
        if (firstColumn + kLanes <= lastX_ && hn::AllTrue(kInts, inOneRow)) {
            const std::uint32_t* const top = source_.Row(firstRow) + firstColumn;
            const std::uint32_t* const bottom = top + (firstRow < lastY_ ? step_ : 0);
            return Blend(hn::LoadU(kPixels, top), hn::LoadU(kPixels, top + 1), hn::LoadU(kPixels, bottom),
                         hn::LoadU(kPixels, bottom + 1), right, below);
        }
        // On the last column and row the neighbour beyond has no weight: the pixel itself is fetched in its place.
        const Ints one = All(1);
        const Ints at = hn::Add(hn::Mul(row, All(step_)), column);
        const Ints toRight = hn::IfThenElseZero(hn::Lt(column, All(lastX_)), one);
        const Ints toBelow = hn::IfThenElseZero(hn::Lt(row, All(lastY_)), All(step_));
        const Ints atBelow = hn::Add(at, toBelow);
        return Blend(Fetch(at), Fetch(hn::Add(at, toRight)), Fetch(atBelow), Fetch(hn::Add(atBelow, toRight)), right,
                     below);
    }

 private:
    using Words = hn::Vec<hn::RepartitionToNarrow<PixelTag>>;
    static constexpr hn::RepartitionToNarrow<PixelTag> kWords{};

    // The fraction, 0 to 255, in both halves of a lane.
    static HWY_INLINE Pixels Weight(Ints place) {
        const Pixels fraction = hn::And(hn::BitCast(kPixels, place), All(0xffu));
        return hn::Or(fraction, hn::ShiftLeft<16>(fraction));
    }

    HWY_INLINE Pixels Fetch(Ints at) const {
        return hn::GatherIndex(kPixels, reinterpret_cast<const std::uint32_t*>(source_.data), at);
    }

    static HWY_INLINE Pixels Blend(Pixels topLeft, Pixels topRight, Pixels bottomLeft, Pixels bottomRight, Pixels right,
                                   Pixels below) {
        // Two channels of a pixel at a time, 16 bits each.
        const auto even = [](Pixels p) HWY_ATTR { return hn::BitCast(kWords, hn::And(p, All(0x00ff00ffu))); };
        const auto odd = [](Pixels p) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(kWords, p)); };
        const Words toRight = hn::BitCast(kWords, right);
        const Shorts toBelow = hn::BitCast(kShorts, hn::ShiftLeft<7>(below));
        const auto mix = [&](auto&& half) HWY_ATTR {
            // 256 a + (b - a) w, up to 65280; the sum wraps round and back.
            const auto across = [&](Pixels left, Pixels rightOf) HWY_ATTR {
                const Words a = half(left);
                return hn::Add(hn::ShiftLeft<8>(a), hn::Mul(hn::Sub(half(rightOf), a), toRight));
            };
            const Shorts top = hn::BitCast(kShorts, hn::ShiftRight<1>(across(topLeft, topRight)));
            const Shorts bottom = hn::BitCast(kShorts, hn::ShiftRight<1>(across(bottomLeft, bottomRight)));
            // The product is a 512th, half of what is to be added.
            const Shorts part = hn::MulHigh(hn::Sub(bottom, top), toBelow);
            const Shorts level = hn::Add(hn::Add(top, All16(64)), hn::Add(part, part));
            return hn::BitCast(kWords, hn::ShiftRight<7>(level));
        };
        return hn::BitCast(kPixels, hn::Or(mix(even), hn::ShiftLeft<8>(mix(odd))));
    }

    static HWY_INLINE Shorts All16(std::int16_t value) { return hn::Set(kShorts, value); }

    const ImageView& source_;
    const int step_;  // pixels from row to row
    const int lastX_, lastY_;
};

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
