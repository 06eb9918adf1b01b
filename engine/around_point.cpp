// Effects around a point, class A.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/around_point.cpp"
#include <hwy/foreach_target.h>

#include "engine/around_point.h"
#include "engine/dispatch.h"
#include "engine/distance_weight_inl.h"
#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// c + 2.55 · S1 · w, or, for S1 below 0, c · (1 + S1 / 100 · w). The change is the same for all three channels, so it
// is rounded once, and added to the bytes or multiplied with them in 256ths.
struct Brightness2Kernel {
    DistanceWeight weight;
    float change;  // 2.55 · S1 or 2.56 · |S1|
    bool darker;

    struct InRow {
        DistanceWeight weight;
        float size;
        bool darker;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            const Floats change = hn::Mul(weight(x, y), All(size));
            if (!darker)
                return hn::BitCast(
                    kPixels, hn::SaturatedAdd(hn::BitCast(kBytes, pixels), hn::BitCast(kBytes, Gray(ToByte(change)))));
            const Pixels left = hn::And(RoundedBits(hn::Sub(All(256.0f), change)), All(0x1ffu));
            const hn::RepartitionToNarrow<PixelTag> words;
            const auto times = hn::BitCast(words, hn::Or(left, hn::ShiftLeft<16>(left)));
            const auto less = [&](Pixels channels) HWY_ATTR {
                const auto product = hn::Add(hn::Mul(hn::BitCast(words, channels), times), hn::Set(words, 128));
                return hn::BitCast(kPixels, hn::ShiftRight<8>(product));
            };
            const Pixels blueRed = less(hn::And(pixels, All(0x00ff00ffu)));
            const Pixels green = less(hn::And(hn::ShiftRight<8>(pixels), All(0xffu)));
            return KeepAlpha(hn::Or(blueRed, hn::ShiftLeft<8>(green)), pixels);
        }
    };
    InRow Row(int y) const { return {weight, change, darker, y}; }
};

void Brightness2OnTarget(const ImageView& source, const MutableImageView& target, Point at, int amount,
                         const Run& run) {
    const bool darker = amount < 0;
    const float change = (darker ? -2.56f : 2.55f) * static_cast<float>(std::clamp(amount, -100, 100));
    const Brightness2Kernel kernel{{Sensible(at), source.width, source.height}, change, darker};
    RenderPoints(kernel, source, target, run);
}

// The angle from the east to the place (dx, dy), upward or downward, as a hue: 0 the east, 3 the west. `ay` is |dy|.
HWY_INLINE Floats HueAround(Floats dx, Floats ay) {
    const Floats ax = hn::Abs(dx);
    // The point itself takes the hue of the east.
    const Floats t = hn::Div(hn::Min(ax, ay), hn::Max(hn::Max(ax, ay), All(1e-6f)));
    // The arc tangent from 0 to 1 (Abramowitz and Stegun 4.4.47, within 0.000012), times 3 / pi.
    constexpr float kSixths = 0.95492966f;
    const Floats square = hn::Mul(t, t);
    Floats sum = All(0.0208351f * kSixths);
    for (const float coefficient : {-0.0851330f, 0.1801410f, -0.3302995f, 0.9998660f})
        sum = hn::Add(hn::Mul(sum, square), All(coefficient * kSixths));
    Floats hue = hn::Mul(sum, t);
    hue = hn::IfThenElse(hn::Gt(ay, ax), hn::Sub(All(1.5f), hue), hue);
    return hn::IfThenElse(hn::Lt(dx, hn::Zero(kFloats)), hn::Sub(All(3.0f), hue), hue);
}

// The pure colour of a hue from 0 to 3, each channel 0 to 1: 0 red, 1 yellow, 2 green, 3 cyan. The other half of the
// circle, over blue and magenta back to red, is the same with green and blue exchanged.
HWY_INLINE Channels PureColor(Floats hue, bool otherHalf) {
    const Floats red = Clamp01(hn::Sub(All(2.0f), hue)), first = hn::Min(hue, All(1.0f));
    const Floats second = hn::Max(hn::Sub(hue, All(2.0f)), hn::Zero(kFloats));
    const auto other = hn::Gt(All(otherHalf ? 1.0f : 0.0f), hn::Zero(kFloats));
    return {hn::IfThenElse(other, first, second), hn::IfThenElse(other, second, first), red};
}

// c + (ramp - c) · |S1| / 100. The ramp has the pixel's luma Y in the hue's colour h of luma Yh: h · Y / Yh as far as
// that stays a colour (Y <= Yh), beyond that it goes on to white: 255 - (255 - h) (255 - Y) / (255 - Yh).
template <bool kFull>
struct ColorGradientKernel {
    Point at;
    float strength;  // 0 to 1; not looked at when kFull, which stands for 1
    bool anticlockwise;

    struct InRow {
        float atX, dy, strength;

        Pixels operator()(Pixels pixels, int x) const {
            const Channels c = Split(pixels);
            const Floats dx = hn::Sub(Columns(x), All(atX));
            const Channels hue = PureColor(HueAround(dx, All(std::abs(dy))), dy < 0);
            // Both ramps are hue · scale + base, with one division.
            const Floats full = All(255.0f);
            const Floats y = Luma(c), hueLuma = hn::Mul(ThousandLuma(hue), All(0.255f));
            const auto dark = hn::Le(y, hueLuma);
            const Floats scale = hn::Div(hn::Mul(full, hn::IfThenElse(dark, y, hn::Sub(full, y))),
                                         hn::IfThenElse(dark, hueLuma, hn::Sub(full, hueLuma)));
            const Floats base = hn::IfThenZeroElse(dark, hn::Sub(full, scale));
            const auto ramp = [&](Floats h) HWY_ATTR { return hn::Add(hn::Mul(h, scale), base); };
            const Channels ramps{ramp(hue.blue), ramp(hue.green), ramp(hue.red)};
            return JoinInRange(kFull ? ramps : Mix(c, ramps, All(strength)), pixels);
        }
    };
    InRow Row(int y) const {
        const float dy = static_cast<float>(y) - static_cast<float>(at.y);
        return {static_cast<float>(at.x), anticlockwise ? -dy : dy, strength};
    }
};

void ColorGradientOnTarget(const ImageView& source, const MutableImageView& target, Point at, int strength,
                           const Run& run) {
    const float part = static_cast<float>(std::clamp(strength, -100, 100)) / 100;
    if (std::abs(part) == 1)
        RenderPoints(ColorGradientKernel<true>{Sensible(at), 1, part < 0}, source, target, run);
    else
        RenderPoints(ColorGradientKernel<false>{Sensible(at), std::abs(part), part < 0}, source, target, run);
}

// Y + (c - Y) · (1 + S1 / 100 · w)
struct Saturation2Kernel {
    DistanceWeight weight;
    float change;  // S1 / 100

    struct InRow {
        DistanceWeight weight;
        float change;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            const Channels c = Split(pixels);
            const Floats factor = hn::Add(hn::Mul(weight(x, y), All(change)), All(1.0f));
            return JoinNear(Mix(Gray(Luma(c)), c, factor), pixels);
        }
    };
    InRow Row(int y) const { return {weight, change, y}; }
};

void Saturation2OnTarget(const ImageView& source, const MutableImageView& target, Point at, int amount,
                         const Run& run) {
    const float change = static_cast<float>(std::clamp(amount, -100, 100)) / 100;
    RenderPoints(Saturation2Kernel{{Sensible(at), source.width, source.height}, change}, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(Brightness2, at, amount)
KELU_DISPATCH(ColorGradient, at, strength)
KELU_DISPATCH(Saturation2, at, amount)

}  // namespace kelu::engine
#endif
