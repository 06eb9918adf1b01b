// Noise, class A: c + 0.6 · S1 · z, z a random number of mean 0 and variance 1 from a hash of the place.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/noise.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/noise.h"
#include "effects/engine/point_inl.h"
#include "effects/engine/random_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Nearly Gaussian numbers from 32 random bits. The sum of their four bytes has mean 510 and variance 4 (256² - 1) / 12
// = 21845, but tails that are too thin (kurtosis 2.7). With s the deviation from 510, z = a s + b s³ has variance 1 and
// kurtosis 3; its distribution function is within 0.0021 of the Gaussian one, its largest value 4.04.
HWY_INLINE Floats Gaussian(Pixels random) {
    const Pixels pairs = All(0x00ff00ffu);
    const Pixels two = hn::Add(hn::And(random, pairs), hn::And(hn::ShiftRight<8>(random), pairs));
    const Pixels four = hn::And(hn::Add(two, hn::ShiftRight<16>(two)), All(0xffffu));
    const Floats s = hn::Sub(ToFloats(four), All(510.0f));
    return hn::Mul(s, hn::Add(All(6.4210406e-3f), hn::Mul(hn::Mul(s, s), All(5.7739543e-9f))));
}

// Another random word from a well-mixed one: one round where a fresh hash takes two.
HWY_INLINE Pixels Another(Pixels random) {
    const Pixels product = hn::Mul(hn::Xor(random, hn::ShiftRight<15>(random)), All(0x2c1b3c6du));
    return hn::Xor(product, hn::ShiftRight<12>(product));
}

template <bool kColored>
struct NoiseKernel {
    float deviation;

    struct InRow {
        float deviation;
        RandomRow random;

        HWY_INLINE Floats Change(Pixels bits) const { return hn::Mul(Gaussian(bits), All(deviation)); }

        Pixels operator()(Pixels pixels, int x) const {
            Channels c = Split(pixels);
            const Pixels first = RandomAt(random, x);
            const Floats change = Change(first);
            c.red = hn::Add(c.red, change);
            if constexpr (kColored) {
                const Pixels second = Another(first);
                c.green = hn::Add(c.green, Change(second));
                c.blue = hn::Add(c.blue, Change(Another(second)));
            } else {
                c.green = hn::Add(c.green, change);
                c.blue = hn::Add(c.blue, change);
            }
            return Join(c, pixels);
        }
    };
    InRow Row(int y) const { return {deviation, RandomRow(y, 5, 0)}; }
};

void NoiseOnTarget(const ImageView& source, const MutableImageView& target, int strength, bool colored,
                   const Run& run) {
    const float deviation = 0.6f * static_cast<float>(std::clamp(strength, 0, 100));
    if (colored) {
        RenderPoints(NoiseKernel<true>{deviation}, source, target, run);
    } else {
        RenderPoints(NoiseKernel<false>{deviation}, source, target, run);
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(NoiseOnTarget);

void Noise(const ImageView& source, const MutableImageView& target, int strength, bool colored, const Run& run) {
    HWY_DYNAMIC_DISPATCH(NoiseOnTarget)(source, target, strength, colored, run);
}

}  // namespace kelu::engine
#endif
