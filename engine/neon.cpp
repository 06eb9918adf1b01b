// Per channel: outline = |Sobel|, the length of the two sums of Sobel's kernels, which is four to eight times the slope
// in levels a pixel; result = outline + its Gaussian blur. Alpha stays.
// SPDX-License-Identifier: MIT
#include "engine/neon.h"

#include "engine/gaussian.h"
#include "engine/pixel_memory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/neon.cpp"
#include <hwy/foreach_target.h>

#include "engine/neighbourhood_inl.h"
#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// sqrt(gx² + gy²) of two channels, 16 bits each, rounded and at most 255.
HWY_INLINE Shorts Outline(Shorts gx, Shorts gy) {
    const auto length = [](Ints x, Ints y) HWY_ATTR {
        const Floats square = hn::ConvertTo(kFloats, hn::Add(hn::Mul(x, x), hn::Mul(y, y)));
        const Floats root = hn::Sqrt(square);
        return hn::ConvertTo(kInts, hn::Min(hn::Add(root, All(0.5f)), All(255.0f)));
    };
    const auto low = [](Shorts v) HWY_ATTR { return hn::ShiftRight<16>(hn::ShiftLeft<16>(hn::BitCast(kInts, v))); };
    const auto high = [](Shorts v) HWY_ATTR { return hn::ShiftRight<16>(hn::BitCast(kInts, v)); };
    return hn::BitCast(kShorts, hn::Or(length(low(gx), low(gy)), hn::ShiftLeft<16>(length(high(gx), high(gy)))));
}

struct OutlineKernel {
    Pixels operator()(const Neighbourhood& around) const {
        // Blue and red of a pixel as 16 bits each; then green and alpha.
        const auto blueRed = [&](int dx, int dy) HWY_ATTR {
            return hn::BitCast(kShorts, hn::And(around.At(dx, dy), All(0x00ff00ffu)));
        };
        const auto greenAlpha = [&](int dx, int dy) HWY_ATTR {
            return hn::BitCast(kShorts, hn::And(hn::ShiftRight<8>(around.At(dx, dy)), All(0x00ff00ffu)));
        };
        const auto outline = [](auto&& at) HWY_ATTR {
            const Shorts rising = hn::Sub(at(1, 1), at(-1, -1)), falling = hn::Sub(at(1, -1), at(-1, 1));
            const Shorts across = hn::Sub(at(1, 0), at(-1, 0)), down = hn::Sub(at(0, 1), at(0, -1));
            return Outline(hn::Add(hn::Add(rising, falling), hn::Add(across, across)),
                           hn::Add(hn::Sub(rising, falling), hn::Add(down, down)));
        };
        const Pixels greens = hn::BitCast(kPixels, outline(greenAlpha));
        const Pixels color = hn::Or(hn::BitCast(kPixels, outline(blueRed)), hn::ShiftLeft<8>(greens));
        return KeepAlpha(hn::AndNot(All(kAlphaMask), color), around.At(0, 0));
    }
};

void NeonOnTarget(const ImageView& source, const MutableImageView& outlines, Passes& passes) {
    passes.Split(source.height, source.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) NeighbourhoodRow(OutlineKernel{}, source, outlines.Row(y), y);
    });
}

// target = outline + glow
void AddGlowOnTarget(const ImageView& outlines, const MutableImageView& target, Passes& passes) {
    passes.Split(target.height, target.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) {
            const std::uint32_t* const outline = outlines.Row(y);
            std::uint32_t* const glow = target.Row(y);
            const auto add = [](Pixels o, Pixels g) HWY_ATTR {
                const auto sum = hn::SaturatedAdd(hn::BitCast(kBytes, o), hn::BitCast(kBytes, g));
                return KeepAlpha(hn::AndNot(All(kAlphaMask), hn::BitCast(kPixels, sum)), o);
            };
            int x = 0;
            for (; x + kLanes <= target.width; x += kLanes)
                hn::StoreU(add(hn::LoadU(kPixels, outline + x), hn::LoadU(kPixels, glow + x)), kPixels, glow + x);
            for (; x < target.width; ++x)
                glow[x] = hn::GetLane(add(hn::Set(kPixels, outline[x]), hn::Set(kPixels, glow[x])));
        }
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(NeonOnTarget);
HWY_EXPORT(AddGlowOnTarget);

// Standard deviation of the glow, image pixels.
constexpr double kGlowSigma = 6;

void Neon(const ImageView& source, const MutableImageView& target, const Run& run) {
    const auto row = static_cast<std::ptrdiff_t>(source.width) * 4;
    const auto memory = TakePixelMemory(static_cast<std::size_t>(row) * static_cast<std::size_t>(source.height));
    const MutableImageView outlines{memory.get(), source.width, source.height, row};
    Passes passes(run, 2 + GaussianPasses(kGlowSigma));
    HWY_DYNAMIC_DISPATCH(NeonOnTarget)(source, outlines, passes);
    GaussianBlur(outlines, target, kGlowSigma, passes);
    HWY_DYNAMIC_DISPATCH(AddGlowOnTarget)(outlines, target, passes);
}

}  // namespace kelu::engine
#endif
