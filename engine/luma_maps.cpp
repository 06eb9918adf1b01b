// Effects that look at luma, class A.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/luma_maps.cpp"
#include <hwy/foreach_target.h>

#include "engine/dispatch.h"
#include "engine/luma_maps.h"
#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// (R + G + B) / 3
struct MeanKernel {
    Pixels operator()(Pixels pixels) const {
        const Channels c = Split(pixels);
        return KeepAlpha(Gray(ToByte(hn::Mul(hn::Add(hn::Add(c.red, c.green), c.blue), All(1.0f / 3)))), pixels);
    }
};

// Y
struct LumaKernel {
    Pixels operator()(Pixels pixels) const { return KeepAlpha(Gray(hn::BitCast(kPixels, LumaInts(pixels))), pixels); }
};

void GrayscaleOnTarget(const ImageView& source, const MutableImageView& target, int weighted, const Run& run) {
    if (weighted == 0) {
        RenderPoints(MeanKernel{}, source, target, run);
    } else {
        RenderPoints(LumaKernel{}, source, target, run);
    }
}

// Y + k · (1 - (1 - S1/100)²) · 2.4 · Y (255 - Y) / 255, k for red, green and blue: a brown of the hue 29 degrees that
// is strongest in the mid-tones, leaves black and white where they are and never loses all of its blue.
struct SepiaKernel {
    float strength;  // 0 to 1

    Pixels operator()(Pixels pixels) const {
        const Floats y = Luma(pixels);
        const Floats tint = hn::Mul(hn::Mul(y, hn::Sub(All(255.0f), y)), All(strength * 2.4f / 255));
        // Only blue can leave its range.
        const Floats blue = hn::Max(hn::Add(y, hn::Mul(tint, All(-0.50f))), hn::Zero(kFloats));
        return JoinInRange({blue, hn::Add(y, hn::Mul(tint, All(-0.085f))), hn::Add(y, hn::Mul(tint, All(0.36f)))},
                           pixels);
    }
};

void SepiaOnTarget(const ImageView& source, const MutableImageView& target, int strength, const Run& run) {
    const float left = 1 - static_cast<float>(std::clamp(strength, 0, 100)) / 100;
    RenderPoints(SepiaKernel{1 - left * left}, source, target, run);
}

// 255 where Y >= S1. Y is rounded, so a thousand times the exact luma is compared with 1000 · S1 - 500.
struct BlackWhiteKernel {
    int thousandThreshold;

    Pixels operator()(Pixels pixels) const {
        const auto white = hn::Gt(ThousandLuma(pixels), All(thousandThreshold - 1));
        const Pixels ones = hn::BitCast(kPixels, hn::VecFromMask(kInts, white));
        return hn::Or(hn::And(pixels, All(kAlphaMask)), hn::AndNot(All(kAlphaMask), ones));
    }
};

void BlackWhiteOnTarget(const ImageView& source, const MutableImageView& target, int threshold, const Run& run) {
    const int clamped = std::clamp(threshold, 0, 256);
    RenderPoints(BlackWhiteKernel{1000 * clamped - 500}, source, target, run);
}

// C · Y / Yc up to the colour's own luma Yc, from there C + (255 - C) (Y - Yc) / (255 - Yc). Black stays black even
// where the colour's luma is 0, white stays white where it is 255.
struct ColorizeKernel {
    struct Channel {
        Channel(int level, int colorLuma)
            : up(colorLuma > 0 ? static_cast<float>(level) / static_cast<float>(colorLuma) : 0),
              down(colorLuma < 255 ? static_cast<float>(255 - level) / static_cast<float>(255 - colorLuma) : 0) {}

        float up, down;  // levels for each level of luma, below and above the colour's
    };
    float colorLuma;
    Channel red, green, blue;

    Pixels operator()(Pixels pixels) const {
        // Up from black, or down from white.
        const Floats y = Luma(pixels);
        const auto dark = hn::Le(y, All(colorLuma));
        const Floats begin = hn::IfThenElseZero(hn::Not(dark), All(255.0f));
        const Floats away = hn::IfThenElse(dark, y, hn::Sub(y, All(255.0f)));
        const auto ramp = [&](const Channel& channel) HWY_ATTR {
            return hn::Add(begin, hn::Mul(away, hn::IfThenElse(dark, All(channel.up), All(channel.down))));
        };
        return JoinInRange({ramp(blue), ramp(green), ramp(red)}, pixels);
    }
};

void ColorizeOnTarget(const ImageView& source, const MutableImageView& target, Color color, const Run& run) {
    const Color c = Sensible(color);
    const int luma = (299 * c.red + 587 * c.green + 114 * c.blue + 500) / 1000;
    const auto channel = [=](int level) { return ColorizeKernel::Channel(level, luma); };
    const ColorizeKernel kernel{static_cast<float>(luma), channel(c.red), channel(c.green), channel(c.blue)};
    RenderPoints(kernel, source, target, run);
}

// C1 + (C2 - C1) · Y / 255
struct FalseColorKernel {
    Color dark, bright;

    Pixels operator()(Pixels pixels) const {
        const Floats y = hn::Mul(Luma(pixels), All(1.0f / 255));
        return JoinInRange(Mix(AllOf(dark), AllOf(bright), y), pixels);
    }
};

void FalseColorOnTarget(const ImageView& source, const MutableImageView& target, Color dark, Color bright,
                        const Run& run) {
    RenderPoints(FalseColorKernel{Sensible(dark), Sensible(bright)}, source, target, run);
}

// Y + (c - Y) · (100 + S1) / 100
struct Saturation1Kernel {
    float factor;

    Pixels operator()(Pixels pixels) const {
        const Channels c = Split(pixels);
        return JoinNear(Mix(Gray(Luma(c)), c, All(factor)), pixels);
    }
};

void Saturation1OnTarget(const ImageView& source, const MutableImageView& target, int amount, const Run& run) {
    const float factor = static_cast<float>(100 + std::clamp(amount, -100, 100)) / 100;
    RenderPoints(Saturation1Kernel{factor}, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(Grayscale, weighted)
KELU_DISPATCH(Sepia, strength)
KELU_DISPATCH(BlackWhite, threshold)
KELU_DISPATCH(Colorize, color)
KELU_DISPATCH(FalseColor, dark, bright)
KELU_DISPATCH(Saturation1, amount)

}  // namespace kelu::engine
#endif
