// random.h in vectors: the same words and the same noise, one column in each lane.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_RANDOM_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_RANDOM_INL
#undef KELU_ENGINE_RANDOM_INL
#else
#define KELU_ENGINE_RANDOM_INL
#endif

#include "engine/lanes_inl.h"
#include "engine/random.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

HWY_INLINE Pixels Mix(Pixels x) {
    x = hn::Mul(hn::Xor(x, hn::ShiftRight<16>(x)), All(0x7feb352du));
    x = hn::Mul(hn::Xor(x, hn::ShiftRight<15>(x)), All(0x846ca68bu));
    return hn::Xor(x, hn::ShiftRight<16>(x));
}

/// 32 random bits for each of the columns `x` (whole numbers, also negative ones as two's complement).
HWY_INLINE Pixels RandomAt(const RandomRow& row, Pixels x) {
    return Mix(hn::Add(hn::Mul(x, All(RandomRow::kStep)), All(row.Seed())));
}

/// For the columns x, x + 1, ...: only the first is multiplied, the others are a sum away from it.
HWY_INLINE Pixels RandomAt(const RandomRow& row, int x) {
    const Pixels steps = hn::Mul(ColumnNumbers(0), All(RandomRow::kStep));
    return Mix(hn::Add(steps, All(row.Seed() + static_cast<std::uint32_t>(x) * RandomRow::kStep)));
}

/// At least 0 and below 1.
HWY_INLINE Floats Unit(Pixels random) { return hn::Mul(ToFloats(hn::ShiftRight<8>(random)), All(0x1p-24f)); }

/// The smooth random curve of random.h.
HWY_INLINE Floats SmoothNoise(Floats x, const RandomRow& row) {
    const Floats cell = hn::Floor(x);
    const Pixels column = hn::BitCast(kPixels, hn::ConvertTo(kInts, cell));
    const Floats a = Unit(RandomAt(row, column)), b = Unit(RandomAt(row, hn::Add(column, All(1u))));
    return Mix(a, b, Smoothstep(hn::Sub(x, cell)));
}

/// Smooth noise over the plane, in the row `y`.
HWY_INLINE Floats SmoothNoise(Floats x, float y, int effect, int stream) {
    const float cell = std::floor(y);
    const int i = static_cast<int>(cell);
    return Mix(SmoothNoise(x, RandomRow(i, effect, stream)), SmoothNoise(x, RandomRow(i + 1, effect, stream)),
               All(engine::Smoothstep(y - cell)));
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
