// Randomness without a sequence: a value is a hash of where it is wanted, so the same picture and inputs give the same
// bytes on every run, every machine and every number of threads. random_inl.h computes the same values in vectors.
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>

namespace kelu::engine {

/// Mixes all bits of a word into all others ("lowbias32" of Chris Wellons' hash prospector, public domain).
constexpr std::uint32_t Mix(std::uint32_t x) {
    x = (x ^ (x >> 16)) * 0x7feb352du;
    x = (x ^ (x >> 15)) * 0x846ca68bu;
    return x ^ (x >> 16);
}

/// One row of random words. `effect` is the effect's number in the catalogue, `stream` tells apart the independent
/// values that an effect wants at one place (0 to 63).
class RandomRow {
 public:
    constexpr RandomRow(int y, int effect, int stream)
        : seed_(
              Mix(static_cast<std::uint32_t>(y) * kStep + Mix(static_cast<std::uint32_t>(effect * 64 + stream + 1)))) {}

    /// 32 random bits for column `x`.
    constexpr std::uint32_t operator()(int x) const { return Mix(static_cast<std::uint32_t>(x) * kStep + seed_); }

    /// At least 0 and below 1, in steps of 2^-24.
    constexpr float Unit(int x) const { return static_cast<float>((*this)(x) >> 8) * 0x1p-24f; }

    constexpr std::uint32_t Seed() const { return seed_; }

    /// Odd, so that neighbouring columns differ in all their bits (2^32 over the golden ratio).
    static constexpr std::uint32_t kStep = 0x9e3779b9u;

 private:
    std::uint32_t seed_;
};

/// 3t² - 2t³ between 0 and 1, flat outside.
constexpr float Smoothstep(float t) {
    const float clamped = t < 0 ? 0 : t > 1 ? 1 : t;
    return clamped * clamped * (3 - 2 * clamped);
}

/// A smooth random curve through one random value at each whole number, each 0 to 1. For a wavelength of L pixels pass
/// x / L; |x| below 2^24.
inline float SmoothNoise(float x, const RandomRow& random) {
    const float cell = std::floor(x);
    const int i = static_cast<int>(cell);
    const float a = random.Unit(i), b = random.Unit(i + 1);
    return a + (b - a) * Smoothstep(x - cell);
}

/// The same over the plane.
inline float SmoothNoise(float x, float y, int effect, int stream) {
    const float cell = std::floor(y);
    const int i = static_cast<int>(cell);
    const float a = SmoothNoise(x, RandomRow(i, effect, stream)), b = SmoothNoise(x, RandomRow(i + 1, effect, stream));
    return a + (b - a) * Smoothstep(y - cell);
}

}  // namespace kelu::engine
