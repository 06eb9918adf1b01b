// Noise, class A: c + 0.6 · S1 · z, z a random number of mean 0 and variance 1 from a hash of the place.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/noise.cpp"
#include <hwy/foreach_target.h>

#include "engine/dispatch.h"
#include "engine/noise.h"
#include "engine/point_inl.h"
#include "engine/random_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Another random word from a well-mixed one: one round where a fresh hash takes two.
HWY_INLINE Pixels Another(Pixels random) {
    const Pixels product = hn::Mul(hn::Xor(random, hn::ShiftRight<15>(random)), All(0x2c1b3c6du));
    return hn::Xor(product, hn::ShiftRight<12>(product));
}

// In each half of a lane the sum of its two bytes.
HWY_INLINE Shorts SumsOfTwo(Pixels random) {
    const hn::RebindToUnsigned<ShortTag> words;
    const auto odd = hn::BitCast(kShorts, hn::ShiftRight<8>(hn::BitCast(words, random)));
    return hn::Add(hn::BitCast(kShorts, hn::And(random, All(0x00ff00ffu))), odd);
}

// The sum of four random bytes has mean 510 and variance 4 (256² - 1) / 12 = 21845, but tails that are too thin
// (kurtosis 2.7). With s the deviation from 510, z = a s + b s³ has variance 1 and kurtosis 3; its distribution
// function is within 0.0021 of the Gaussian one, its largest value 4.04. All is done in 16 bits: s in 1/512, factors in
// 1/32768, the change in 1/64 level.
constexpr double kLinear = 6.4210406e-3, kCubic = 5.7739543e-9;

template <bool kColored>
struct NoiseKernel {
    std::int16_t linear, cubic;

    explicit NoiseKernel(double deviation)
        : linear(static_cast<std::int16_t>(std::lround(deviation * kLinear * 512 * 64))),
          cubic(static_cast<std::int16_t>(std::lround(deviation * kCubic * 512 * 64 * 512 * 512))) {}

    struct InRow {
        std::int16_t linear, cubic;
        RandomRow random;

        // Levels, from the sum of four bytes in each half of a lane.
        HWY_INLINE Shorts Change(Shorts sums) const {
            const Shorts s = hn::ShiftLeft<6>(hn::Sub(sums, hn::Set(kShorts, 510)));
            const Shorts bend = hn::MulFixedPoint15(hn::MulFixedPoint15(s, s), hn::Set(kShorts, cubic));
            const Shorts change = hn::MulFixedPoint15(s, hn::Add(hn::Set(kShorts, linear), bend));
            return hn::ShiftRight<6>(hn::Add(change, hn::Set(kShorts, 32)));
        }

        Pixels operator()(Pixels pixels, int x) const {
            const ShortChannels c = SplitShorts(pixels);
            const Pixels first = RandomAt(random, x);
            if constexpr (kColored) {
                const Pixels second = Another(first);
                const Shorts third = SumsOfTwo(Another(second));
                const Shorts green =
                    hn::Add(third, hn::BitCast(kShorts, hn::ShiftRight<16>(hn::BitCast(kPixels, third))));
                return JoinShorts({hn::Add(c.blueRed, Change(hn::Add(SumsOfTwo(first), SumsOfTwo(second)))),
                                   hn::Add(c.greenAlpha, Change(green))},
                                  pixels);
            } else {
                const Pixels two = hn::BitCast(kPixels, SumsOfTwo(first));
                const Pixels turned = hn::Or(hn::ShiftRight<16>(two), hn::ShiftLeft<16>(two));
                const Shorts change = Change(hn::BitCast(kShorts, hn::Add(two, turned)));
                return JoinShorts({hn::Add(c.blueRed, change), hn::Add(c.greenAlpha, change)}, pixels);
            }
        }
    };
    InRow Row(int y) const { return {linear, cubic, RandomRow(y, 5, 0)}; }
};

void NoiseOnTarget(const ImageView& source, const MutableImageView& target, int strength, bool colored,
                   const Run& run) {
    const double deviation = 0.6 * std::clamp(strength, 0, 100);
    if (colored) {
        RenderPoints(NoiseKernel<true>(deviation), source, target, run);
    } else {
        RenderPoints(NoiseKernel<false>(deviation), source, target, run);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(Noise, strength, colored)

}  // namespace kelu::engine
#endif
