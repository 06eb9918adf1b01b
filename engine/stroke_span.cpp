// A stroke row by row, in vectors: distances in doubles, blends of opaque pixels in 16-bit whole numbers.
// SPDX-License-Identifier: MIT
#include "engine/stroke_span.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/stroke_span.cpp"
#include <hwy/foreach_target.h>

#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

using DoubleTag = hn::ScalableTag<double>;
using Doubles = hn::Vec<DoubleTag>;
constexpr DoubleTag kDoubles;

HWY_INLINE Doubles AllDoubles(double value) { return hn::Set(kDoubles, value); }
HWY_INLINE Doubles Clamp01(Doubles t) { return hn::Min(hn::Max(t, hn::Zero(kDoubles)), AllDoubles(1.0)); }

void SegmentSharesOnTarget(const SegmentEdge& edge, int strength, int x, int y, int count, std::uint8_t* shares) {
    constexpr int kStep = static_cast<int>(HWY_LANES(double));
    static_assert(kStep <= kRoomForShares);
    const hn::Rebind<float, DoubleTag> floats;
    const hn::Rebind<std::int32_t, DoubleTag> ints;
    const hn::Rebind<std::uint8_t, DoubleTag> bytes;
    const double squared = edge.dx * edge.dx + edge.dy * edge.dy;
    const Doubles length = AllDoubles(squared > 0 ? squared : 1), py = AllDoubles(y - edge.y);
    const Doubles dx = AllDoubles(edge.dx), dy = AllDoubles(edge.dy), alongY = hn::Mul(py, dy);
    const Doubles outer = AllDoubles(edge.outer), fall = AllDoubles(edge.outer - edge.core);
    const bool isHard = edge.outer - edge.core <= 1;
    const auto most = hn::Set(floats, static_cast<float>(strength)), half = hn::Set(floats, 0.5f);
    Doubles px = hn::Add(hn::Iota(kDoubles, 0), AllDoubles(x - edge.x));
    for (int i = 0; i < count; i += kStep, px = hn::Add(px, AllDoubles(kStep))) {
        const Doubles t = Clamp01(hn::Div(hn::Add(hn::Mul(px, dx), alongY), length));
        const Doubles ex = hn::Sub(px, hn::Mul(t, dx)), ey = hn::Sub(py, hn::Mul(t, dy));
        const Doubles distance = hn::Sqrt(hn::Add(hn::Mul(ex, ex), hn::Mul(ey, ey)));
        Doubles share = Clamp01(hn::Div(hn::Sub(outer, distance), fall));
        if (!isHard) share = hn::Mul(hn::Mul(share, share), hn::Sub(AllDoubles(3.0), hn::Add(share, share)));
        const auto rounded = hn::ConvertTo(ints, hn::Add(hn::Mul(hn::DemoteTo(floats, share), most), half));
        hn::StoreU(hn::DemoteTo(bytes, rounded), bytes, shares + i);
    }
}

/// (a * (255 - share) + b * share) / 255 in each channel, rounded; `share` is 0 to 255.
HWY_INLINE Pixels MixByShare(Pixels a, Pixels b, Pixels share) {
    const Words s = hn::BitCast(kWords, hn::Or(share, hn::ShiftLeft<16>(share)));
    const Words rest = hn::Sub(hn::Set(kWords, 255), s);
    const auto mix = [&](Words of, Words with) HWY_ATTR {
        const Words sum = hn::Add(hn::Add(hn::Mul(of, rest), hn::Mul(with, s)), hn::Set(kWords, 127));
        return hn::ShiftRight<7>(hn::MulHigh(sum, hn::Set(kWords, 0x8081)));  // by 255, exactly
    };
    const auto low = [](Pixels pixels) HWY_ATTR { return hn::BitCast(kWords, hn::And(pixels, All(0x00ff00ffu))); };
    const auto high = [](Pixels pixels) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(kWords, pixels)); };
    const Words alphaGreen = hn::ShiftLeft<8>(mix(high(a), high(b)));
    return hn::BitCast(kPixels, hn::Or(mix(low(a), low(b)), alphaGreen));
}

/// The same where a pixel may be transparent: a hidden colour doesn't show.
inline std::uint32_t MixByAlpha(std::uint32_t before, std::uint32_t paint, std::uint32_t share) {
    const std::uint32_t wBefore = (255 - share) * (before >> 24), wPaint = share * (paint >> 24);
    const std::uint32_t sum = wBefore + wPaint;
    const auto channel = [&](int shift) {
        const std::uint32_t mixed = ((before >> shift) & 255u) * wBefore + ((paint >> shift) & 255u) * wPaint;
        return sum == 0 ? 0u : (mixed + sum / 2) / sum << shift;
    };
    return ((sum + 127) / 255 << 24) | channel(16) | channel(8) | channel(0);
}

/// kLanes pixels from `i` on.
HWY_INLINE void BlendLanes(const StrokeSpan& span, int i, bool laysOver) {
    const hn::Rebind<std::uint8_t, PixelTag> bytes;
    const auto segment = hn::LoadU(bytes, span.shares + i), covered = hn::LoadU(bytes, span.covered + i);
    const Ints share = hn::PromoteTo(kInts, segment);
    const auto more = hn::Gt(share, hn::PromoteTo(kInts, covered));
    if (hn::AllFalse(kInts, more)) return;
    hn::StoreU(hn::Max(segment, covered), bytes, span.covered + i);
    const Pixels opaque = All(kAlphaMask), before = hn::LoadU(kPixels, span.before + i);
    Pixels paint = hn::LoadU(kPixels, span.paint + i);
    if (laysOver) paint = hn::Or(MixByShare(before, paint, hn::ShiftRight<24>(paint)), opaque);
    const auto isOpaque = hn::Eq(hn::And(hn::And(before, paint), opaque), opaque);
    const auto changes = hn::RebindMask(kPixels, more);
    const Pixels target = hn::LoadU(kPixels, span.target + i);
    const Pixels shares = hn::BitCast(kPixels, share);
    hn::StoreU(hn::IfThenElse(changes, MixByShare(before, paint, shares), target), kPixels, span.target + i);
    const auto byAlpha = hn::And(changes, hn::Not(isOpaque));
    if (hn::AllFalse(kPixels, byAlpha)) return;
    HWY_ALIGN std::uint32_t byAlphas[kLanes];
    hn::Store(hn::VecFromMask(kPixels, byAlpha), kPixels, byAlphas);
    for (int lane = 0; lane < kLanes; ++lane)
        if (byAlphas[lane] != 0)
            span.target[i + lane] = MixByAlpha(span.before[i + lane], span.paint[i + lane], span.shares[i + lane]);
}

void BlendStrokeOnTarget(const StrokeSpan& span, bool laysOver) {
    int i = 0;
    for (; i + kLanes <= span.count; i += kLanes) BlendLanes(span, i, laysOver);
    if (i == span.count) return;
    // The last vector overlaps the one before: what that has covered is not covered more by the same shares.
    if (i > 0) return BlendLanes(span, span.count - kLanes, laysOver);
    HWY_ALIGN std::uint8_t shares[kLanes] = {}, covered[kLanes] = {};
    HWY_ALIGN std::uint32_t before[kLanes] = {}, paint[kLanes] = {}, target[kLanes] = {};
    std::copy_n(span.shares, span.count, shares);
    std::copy_n(span.covered, span.count, covered);
    std::copy_n(span.before, span.count, before);
    std::copy_n(span.paint, span.count, paint);
    std::copy_n(span.target, span.count, target);
    BlendLanes({shares, covered, before, paint, target, kLanes}, 0, laysOver);
    std::copy_n(covered, span.count, span.covered);
    std::copy_n(target, span.count, span.target);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(SegmentSharesOnTarget);
void SegmentShares(const SegmentEdge& edge, int strength, int x, int y, int count, std::uint8_t* shares) {
    HWY_DYNAMIC_DISPATCH(SegmentSharesOnTarget)(edge, strength, x, y, count, shares);
}

HWY_EXPORT(BlendStrokeOnTarget);
void BlendStroke(const StrokeSpan& span, bool laysOver) { HWY_DYNAMIC_DISPATCH(BlendStrokeOnTarget)(span, laysOver); }

}  // namespace kelu::engine
#endif
