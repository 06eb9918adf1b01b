// All the numbers below n in a random order that is known at any point without the ones before it.
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>

#include "engine/random.h"

namespace kelu::engine {

/// A Feistel network of four rounds (Luby and Rackoff, 1988) over the next even power of two; numbers of n and more are
/// sent through it again until they fall below n.
class RandomOrder {
 public:
    /// n from 1 to 2^30.
    constexpr RandomOrder(std::uint32_t n, int effect)
        : n(n), bits((std::bit_width(n - 1) + 1) / 2), mask((1u << bits) - 1), seed(RandomRow(0, effect, 63).Seed()) {}

    /// Which number stands at `rank`, 0 to n - 1.
    constexpr std::uint32_t At(std::uint32_t rank) const {
        do rank = Forth(rank);
        while (rank >= n);
        return rank;
    }

    /// Where `number`, 0 to n - 1, stands.
    constexpr std::uint32_t RankOf(std::uint32_t number) const {
        do number = Back(number);
        while (number >= n);
        return number;
    }

    static constexpr std::uint32_t kRounds = 4;
    const std::uint32_t n;
    const int bits;  // of one half
    const std::uint32_t mask;
    const std::uint32_t seed;

 private:
    constexpr std::uint32_t Round(std::uint32_t half, std::uint32_t round) const {
        return Mix(half * RandomRow::kStep + seed + round) & mask;
    }
    constexpr std::uint32_t Forth(std::uint32_t value) const {
        std::uint32_t left = value >> bits, right = value & mask;
        for (std::uint32_t round = 0; round < kRounds; ++round) {
            const std::uint32_t next = left ^ Round(right, round);
            left = right;
            right = next;
        }
        return left << bits | right;
    }
    constexpr std::uint32_t Back(std::uint32_t value) const {
        std::uint32_t left = value >> bits, right = value & mask;
        for (std::uint32_t round = kRounds; round-- > 0;) {
            const std::uint32_t before = right ^ Round(left, round);
            right = left;
            left = before;
        }
        return left << bits | right;
    }
};

}  // namespace kelu::engine
