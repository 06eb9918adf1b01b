// Maps of single channels, class A.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/channel_maps.cpp"
#include <hwy/foreach_target.h>

#include "engine/channel_maps.h"
#include "engine/dispatch.h"
#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// One value for each channel, nothing for alpha, as the pixel 0x00RRGGBB.
inline std::uint32_t Packed(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

// c + 2.55 · S1: a whole number for all pixels, added to the bytes.
struct Brightness1Kernel {
    std::uint32_t change;  // the same byte in each channel
    bool darker;

    Pixels operator()(Pixels pixels) const {
        const Bytes bytes = hn::BitCast(kBytes, pixels), by = hn::BitCast(kBytes, All(change));
        return hn::BitCast(kPixels, darker ? hn::SaturatedSub(bytes, by) : hn::SaturatedAdd(bytes, by));
    }
};

void Brightness1OnTarget(const ImageView& source, const MutableImageView& target, int amount, const Run& run) {
    // The nearest whole number, halves upward, of a number from -255 to 255.
    const int change = (255 * std::clamp(amount, -100, 100) + 25550) / 100 - 255;
    const int size = std::abs(change);
    RenderPoints(Brightness1Kernel{Packed(size, size, size), change < 0}, source, target, run);
}

// c · scale + offset, for each channel its own.
struct Line {
    float scale = 1;
    float offset = 0;

    HWY_INLINE Floats operator()(Floats c) const { return hn::Add(hn::Mul(c, All(scale)), All(offset)); }
};

struct LinesKernel {
    Line red, green, blue;

    Pixels operator()(Pixels pixels) const {
        const Channels c = Split(pixels);
        return Join({blue(c.blue), green(c.green), red(c.red)}, pixels);
    }
};

// (c - 128) · k + 128, k = ((100 + S1) / 100)²
void ContrastOnTarget(const ImageView& source, const MutableImageView& target, int amount, const Run& run) {
    const float root = static_cast<float>(100 + std::clamp(amount, -100, 100)) / 100;
    const Line line{root * root, 128 - 128 * root * root};
    RenderPoints(LinesKernel{line, line, line}, source, target, run);
}

// (c - C1) · 255 / (C2 - C1). Where C2 does not lie above C1 the line is so steep that it is a threshold at C1.
inline Line Levels(int black, int white) {
    if (white <= black) return {512, 512 * (0.5f - static_cast<float>(black))};
    const float scale = 255 / static_cast<float>(white - black);
    return {scale, -scale * static_cast<float>(black)};
}

void ColorCorrectionOnTarget(const ImageView& source, const MutableImageView& target, Color black, Color white,
                             const Run& run) {
    const Color from = Sensible(black), to = Sensible(white);
    const LinesKernel kernel{Levels(from.red, to.red), Levels(from.green, to.green), Levels(from.blue, to.blue)};
    RenderPoints(kernel, source, target, run);
}

// c · C1 / 255
void TintOnTarget(const ImageView& source, const MutableImageView& target, Color color, const Run& run) {
    const Color by = Sensible(color);
    const auto line = [](int level) { return Line{static_cast<float>(level) / 255, 0}; };
    RenderPoints(LinesKernel{line(by.red), line(by.green), line(by.blue)}, source, target, run);
}

// 255 - c
struct NegativeKernel {
    std::uint32_t mask;  // 255 in the channels to invert

    Pixels operator()(Pixels pixels) const { return hn::Xor(pixels, All(mask)); }
};

void NegativeOnTarget(const ImageView& source, const MutableImageView& target, bool red, bool green, bool blue,
                      const Run& run) {
    RenderPoints(NegativeKernel{Packed(red ? 255 : 0, green ? 255 : 0, blue ? 255 : 0)}, source, target, run);
}

// The upper S bits are the band, 0 to 2^S - 1; the band's level is band · 255 / (2^S - 1).
struct PosterizeKernel {
    struct Channel {
        explicit Channel(int bits) : lost(8 - bits), step(255 / static_cast<float>((1 << bits) - 1)) {}

        HWY_INLINE Pixels operator()(Pixels byte) const {
            return ToByte(hn::Mul(ToFloats(hn::ShiftRightSame(byte, lost)), All(step)));
        }

        int lost;
        float step;
    };
    Channel red, green, blue;

    Pixels operator()(Pixels pixels) const {
        const Pixels low = All(0xffu);
        const Pixels r = red(hn::And(hn::ShiftRight<16>(pixels), low));
        const Pixels g = green(hn::And(hn::ShiftRight<8>(pixels), low));
        const Pixels b = blue(hn::And(pixels, low));
        return KeepAlpha(hn::Or(hn::Or(hn::ShiftLeft<16>(r), hn::ShiftLeft<8>(g)), b), pixels);
    }
};

void PosterizeOnTarget(const ImageView& source, const MutableImageView& target, int redBits, int greenBits,
                       int blueBits, const Run& run) {
    const auto channel = [](int bits) { return PosterizeKernel::Channel(std::clamp(bits, 1, 8)); };
    RenderPoints(PosterizeKernel{channel(redBits), channel(greenBits), channel(blueBits)}, source, target, run);
}

// 255 - c where c >= S (or where c < S), else c.
struct SolarizeKernel {
    std::uint32_t thresholds;
    std::uint32_t inverted;  // 255 in the colour channels: what an inversion flips
    bool bright;

    Pixels operator()(Pixels pixels) const {
        const Bytes bytes = hn::BitCast(kBytes, pixels), least = hn::BitCast(kBytes, All(thresholds));
        const Bytes reaches = hn::VecFromMask(kBytes, hn::Eq(hn::Max(bytes, least), bytes));
        const Bytes flip = hn::BitCast(kBytes, All(inverted));
        return hn::BitCast(kPixels, hn::Xor(bytes, bright ? hn::And(reaches, flip) : hn::AndNot(reaches, flip)));
    }
};

void SolarizeOnTarget(const ImageView& source, const MutableImageView& target, int red, int green, int blue,
                      bool bright, const Run& run) {
    const Color least = Sensible(Color{red, green, blue});
    RenderPoints(SolarizeKernel{Packed(least.red, least.green, least.blue), 0x00ffffffu, bright}, source, target, run);
}

// Moves the bytes at the two places (in bits from the lowest) to each other's.
template <int kLow, int kHigh>
struct SwapKernel {
    Pixels operator()(Pixels pixels) const {
        constexpr std::uint32_t kLowMask = 0xffu << kLow, kHighMask = 0xffu << kHigh;
        const Pixels kept = hn::And(pixels, All(~(kLowMask | kHighMask)));
        const Pixels up = hn::And(hn::ShiftLeft<kHigh - kLow>(pixels), All(kHighMask));
        const Pixels down = hn::And(hn::ShiftRight<kHigh - kLow>(pixels), All(kLowMask));
        return hn::Or(kept, hn::Or(up, down));
    }
};

void SwapColorsOnTarget(const ImageView& source, const MutableImageView& target, int pair, const Run& run) {
    if (pair <= 0) {
        RenderPoints(SwapKernel<0, 8>{}, source, target, run);
    } else if (pair == 1) {
        RenderPoints(SwapKernel<0, 16>{}, source, target, run);
    } else {
        RenderPoints(SwapKernel<8, 16>{}, source, target, run);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(Brightness1, amount)
KELU_DISPATCH(Contrast, amount)
KELU_DISPATCH(ColorCorrection, black, white)
KELU_DISPATCH(Tint, color)
KELU_DISPATCH(Negative, red, green, blue)
KELU_DISPATCH(Posterize, redBits, greenBits, blueBits)
KELU_DISPATCH(Solarize, red, green, blue, bright)
KELU_DISPATCH(SwapColors, pair)

}  // namespace kelu::engine
#endif
