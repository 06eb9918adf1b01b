// The vocabulary of vector kernels: one pixel in each 32-bit lane, its channels as floats or as bytes, luma, weights.
// Included once for each instruction set (see docs/kernels.md). Multiplication and addition stay separate: a fused one
// rounds differently and exists only on some machines.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_LANES_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_LANES_INL
#undef KELU_ENGINE_LANES_INL
#else
#define KELU_ENGINE_LANES_INL
#endif

#include <hwy/highway.h>

#include <algorithm>
#include <cmath>

#include "engine/image_view.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using PixelTag = hn::ScalableTag<std::uint32_t>;
using IntTag = hn::RebindToSigned<PixelTag>;
using FloatTag = hn::RebindToFloat<PixelTag>;
using ByteTag = hn::Repartition<std::uint8_t, PixelTag>;
using ShortTag = hn::Repartition<std::int16_t, PixelTag>;

/// kLanes pixels, each 0xAARRGGBB.
using Pixels = hn::Vec<PixelTag>;
using Ints = hn::Vec<IntTag>;
using Floats = hn::Vec<FloatTag>;
using Bytes = hn::Vec<ByteTag>;
using Shorts = hn::Vec<ShortTag>;

constexpr int kLanes = static_cast<int>(HWY_LANES(std::uint32_t));
constexpr PixelTag kPixels;
constexpr IntTag kInts;
constexpr FloatTag kFloats;
constexpr ByteTag kBytes;
constexpr ShortTag kShorts;

constexpr std::uint32_t kAlphaMask = 0xff000000u;

HWY_INLINE Floats All(float value) { return hn::Set(kFloats, value); }
HWY_INLINE Ints All(int value) { return hn::Set(kInts, value); }
HWY_INLINE Pixels All(std::uint32_t value) { return hn::Set(kPixels, value); }

/// The colour channels of kLanes pixels, 0 to 255 when they come from pixels.
struct Channels {
    Floats blue, green, red;
};

HWY_INLINE Floats ToFloats(Pixels small) { return hn::ConvertTo(kFloats, hn::BitCast(kInts, small)); }

HWY_INLINE Channels Split(Pixels pixels) {
    const Pixels low = All(0xffu);
    return {ToFloats(hn::And(pixels, low)), ToFloats(hn::And(hn::ShiftRight<8>(pixels), low)),
            ToFloats(hn::And(hn::ShiftRight<16>(pixels), low))};
}

/// Adding this to a number from 0 to 255 rounds it to the nearest whole number (a half to the even one), which then
/// stands in the lowest bits: floats of that size have no bits behind the point. It takes one instruction where a
/// conversion that is safe for any number takes five.
constexpr float kRounder = 0x1p23f;
HWY_INLINE Pixels RoundedBits(Floats value) { return hn::BitCast(kPixels, hn::Add(value, All(kRounder))); }

HWY_INLINE Floats ClampByte(Floats value) { return hn::Min(hn::Max(value, hn::Zero(kFloats)), All(255.0f)); }

/// To the nearest whole number from 0 to 255.
HWY_INLINE Pixels ToByte(Floats value) { return hn::And(RoundedBits(ClampByte(value)), All(0xffu)); }

HWY_INLINE Pixels KeepAlpha(Pixels color, Pixels alpha) { return hn::Or(color, hn::And(alpha, All(kAlphaMask))); }

/// Pixels of these channels, rounded, with the alpha of `alpha`. No channel may be beyond 0 or 255 by more than a
/// float's error.
HWY_INLINE Pixels JoinInRange(const Channels& channels, Pixels alpha) {
    const Pixels blue = RoundedBits(channels.blue);
    const Pixels green = hn::ShiftLeft<8>(RoundedBits(channels.green));
    const Pixels red = hn::ShiftLeft<16>(RoundedBits(channels.red));
    return KeepAlpha(hn::AndNot(All(kAlphaMask), hn::Or(hn::Or(red, green), blue)), alpha);
}

/// The same, clamped.
HWY_INLINE Pixels Join(const Channels& channels, Pixels alpha) {
    return JoinInRange({ClampByte(channels.blue), ClampByte(channels.green), ClampByte(channels.red)}, alpha);
}

/// The same, for channels less than 2^15 from 0: rounded to 16 bits, so that one instruction clamps two channels.
HWY_INLINE Pixels JoinNear(const Channels& channels, Pixels alpha) {
    constexpr float rounder = 0x1.8p23f;  // also for what is below 0
    const auto round = [](Floats value) HWY_ATTR { return hn::BitCast(kShorts, hn::Add(value, All(rounder))); };
    const auto inOdd = [](Shorts value)
                           HWY_ATTR { return hn::BitCast(kShorts, hn::ShiftLeft<16>(hn::BitCast(kPixels, value))); };
    const hn::RebindToUnsigned<ShortTag> words;
    const Shorts old = hn::BitCast(kShorts, hn::ShiftRight<8>(hn::BitCast(words, alpha)));
    const Shorts least = hn::Zero(kShorts), most = hn::Set(kShorts, 255);
    const auto clamp = [&](Shorts value) HWY_ATTR { return hn::Min(hn::Max(value, least), most); };
    const Shorts blueRed = clamp(hn::OddEven(inOdd(round(channels.red)), round(channels.blue)));
    const Shorts greenAlpha = clamp(hn::OddEven(old, round(channels.green)));
    return hn::BitCast(kPixels, hn::Or(blueRed, hn::ShiftLeft<8>(greenAlpha)));
}

/// The same byte (0 to 255 in each lane) in the three colour channels.
HWY_INLINE Pixels Gray(Pixels byte) { return hn::Or(hn::Or(byte, hn::ShiftLeft<8>(byte)), hn::ShiftLeft<16>(byte)); }

HWY_INLINE Channels Gray(Floats value) { return {value, value, value}; }

/// A thousand times the luma of Rec. 601, 299 R + 587 G + 114 B: whole numbers, exact.
HWY_INLINE Floats ThousandLuma(const Channels& channels) {
    return hn::Add(hn::Add(hn::Mul(channels.red, All(299.0f)), hn::Mul(channels.green, All(587.0f))),
                   hn::Mul(channels.blue, All(114.0f)));
}

/// Luma rounded to nearest, halves upward, exactly: a quarter of a thousandth lifts the halves, and no other value
/// comes closer to one than that. For channels that are wanted as floats anyway; else see below.
HWY_INLINE Floats Luma(const Channels& channels) {
    const Floats y = hn::Mul(hn::Add(ThousandLuma(channels), All(0.25f)), All(0.001f));
    return hn::Sub(hn::Add(y, All(kRounder)), All(kRounder));
}

HWY_INLINE Floats Clamp01(Floats t) { return hn::Min(hn::Max(t, hn::Zero(kFloats)), All(1.0f)); }

/// 3t² - 2t³ between 0 and 1, flat outside.
HWY_INLINE Floats Smoothstep(Floats t) {
    const Floats clamped = Clamp01(t);
    return hn::Mul(hn::Mul(clamped, clamped), hn::Sub(All(3.0f), hn::Add(clamped, clamped)));
}

/// a + (b - a) * t
HWY_INLINE Floats Mix(Floats a, Floats b, Floats t) { return hn::Add(a, hn::Mul(hn::Sub(b, a), t)); }
HWY_INLINE Channels Mix(const Channels& a, const Channels& b, Floats t) {
    return {Mix(a.blue, b.blue, t), Mix(a.green, b.green, t), Mix(a.red, b.red, t)};
}

HWY_INLINE Channels AllOf(const Color& color) {
    return {All(static_cast<float>(color.blue)), All(static_cast<float>(color.green)),
            All(static_cast<float>(color.red))};
}

/// The channels as 16-bit numbers: blue and red in one vector, green and alpha in the other, in the order of the
/// pixels. Taking them apart and putting them together costs a mask and a shift, with no lane ever changing its place.
struct ShortChannels {
    Shorts blueRed, greenAlpha;
};

HWY_INLINE ShortChannels SplitShorts(Pixels pixels) {
    const hn::RebindToUnsigned<ShortTag> words;
    return {hn::BitCast(kShorts, hn::And(pixels, All(0x00ff00ffu))),
            hn::BitCast(kShorts, hn::ShiftRight<8>(hn::BitCast(words, pixels)))};
}

/// The products of two pairs of 16-bit numbers, added: one instruction where there is one for it.
HWY_INLINE Ints PairProducts(Shorts a, Shorts b) {
#if HWY_TARGET == HWY_AVX2 || HWY_TARGET == HWY_SSE4
    Ints none = hn::Zero(kInts);
    return hn::ReorderWidenMulAccumulate(kInts, a, b, hn::Zero(kInts), none);
#else
    const auto low = [](Shorts pair)
                         HWY_ATTR { return hn::ShiftRight<16>(hn::ShiftLeft<16>(hn::BitCast(kInts, pair))); };
    const auto high = [](Shorts pair) HWY_ATTR { return hn::ShiftRight<16>(hn::BitCast(kInts, pair)); };
    return hn::Add(hn::Mul(low(a), low(b)), hn::Mul(high(a), high(b)));
#endif
}

/// The same luma, from pixels.
HWY_INLINE Ints ThousandLuma(Pixels pixels) {
    const ShortChannels c = SplitShorts(pixels);
    return hn::Add(PairProducts(c.blueRed, hn::BitCast(kShorts, All(299u << 16 | 114u))),
                   PairProducts(c.greenAlpha, hn::BitCast(kShorts, All(587u))));
}

/// Rounded as above, exactly: an eighth of the number fits 16 bits, and 33555 / 2^22 is so near
/// to an eighth of a thousandth that no quotient falls short of a whole number or reaches the next.
HWY_INLINE Ints LumaInts(Pixels pixels) {
    const hn::RebindToUnsigned<ShortTag> words;
    const Ints eighths = hn::ShiftRight<3>(hn::Add(ThousandLuma(pixels), All(500)));
    const auto product = hn::MulHigh(hn::BitCast(words, eighths), hn::Set(words, std::uint16_t{33555}));
    return hn::ShiftRight<6>(hn::BitCast(kInts, product));
}
HWY_INLINE Floats Luma(Pixels pixels) { return hn::ConvertTo(kFloats, LumaInts(pixels)); }

/// Pixels of these channels, clamped to 0 to 255, with the alpha of `alpha`.
HWY_INLINE Pixels JoinShorts(const ShortChannels& channels, Pixels alpha) {
    const Shorts least = hn::Zero(kShorts), most = hn::Set(kShorts, 255);
    const Shorts blueRed = hn::Min(hn::Max(channels.blueRed, least), most);
    const Shorts green = hn::ShiftLeft<8>(hn::Min(hn::Max(channels.greenAlpha, least), most));
    const Pixels color = hn::BitCast(kPixels, hn::Or(blueRed, green));
    return hn::Or(hn::AndNot(All(kAlphaMask), color), hn::And(alpha, All(kAlphaMask)));
}

using Words = hn::Vec<hn::RepartitionToNarrow<PixelTag>>;
constexpr hn::RepartitionToNarrow<PixelTag> kWords;

/// A number below 2^16 in both halves of its lane.
HWY_INLINE Pixels InBoth(Pixels low) { return hn::Or(low, hn::ShiftLeft<16>(low)); }

/// All four channels of `a` and `b`, rounded, of the latter `weight` of 256, which stands in both halves of a lane.
HWY_INLINE Pixels MixBytes(Pixels a, Pixels b, Pixels weight) {
    const Words ofB = hn::BitCast(kWords, weight), ofA = hn::Sub(hn::Set(kWords, 256), ofB);
    const auto mix = [&](Words x, Words y) HWY_ATTR {
        const Words sum = hn::Add(hn::Mul(x, ofA), hn::Mul(y, ofB));
        return hn::BitCast(kPixels, hn::ShiftRight<8>(hn::Add(sum, hn::Set(kWords, 128))));
    };
    const auto even = [](Pixels p) HWY_ATTR { return hn::BitCast(kWords, hn::And(p, All(0x00ff00ffu))); };
    const auto odd = [](Pixels p) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(kWords, p)); };
    return hn::Or(mix(even(a), even(b)), hn::ShiftLeft<8>(mix(odd(a), odd(b))));
}

/// The columns x, x + 1, ... from a table: the library's own Iota passes through the stack number by number.
HWY_ALIGN inline constexpr std::uint32_t kSteps[16] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
static_assert(kLanes <= 16);
HWY_INLINE Pixels ColumnNumbers(int x) {
    return hn::Add(hn::Load(kPixels, kSteps), All(static_cast<std::uint32_t>(x)));
}
HWY_INLINE Floats Columns(int x) { return hn::Add(ToFloats(hn::Load(kPixels, kSteps)), All(static_cast<float>(x))); }

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
