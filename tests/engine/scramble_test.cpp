// Scramble exchanges whole squares in pairs, as many as asked for.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <vector>

#include "engine/random_order.h"
#include "engine/rearrange.h"
#include "tests/support/engine_pictures.h"

namespace kelu::engine_test {
namespace {

TEST(RandomOrder, HoldsEveryNumberOnceAndKnowsItsRank) {
    for (const std::uint32_t n : {1u, 2u, 3u, 4u, 5u, 64u, 65u, 1000u, 70000u}) {
        const engine::RandomOrder order(n, 38);
        std::vector<bool> seen(n);
        std::uint32_t atHome = 0;
        for (std::uint32_t rank = 0; rank < n; ++rank) {
            const std::uint32_t number = order.At(rank);
            ASSERT_LT(number, n);
            ASSERT_FALSE(seen[number]) << n << " numbers, " << number;
            seen[number] = true;
            ASSERT_EQ(order.RankOf(number), rank);
            if (number == rank) ++atHome;
        }
        EXPECT_TRUE(n < 64 || atHome <= n / 16) << "hardly an order at random";
    }
}

// Squares are told apart by one colour each; a square's number is in its red and green.
Picture Numbered(int side, int columns, int rows, int restX, int restY) {
    Picture picture(side * columns + restX, side * rows + restY);
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            const int column = x / side, row = y / side, number = row * columns + column;
            const bool whole = column < columns && row < rows;
            picture.Set(x, y, {number % 256, number / 256, whole ? 0 : 255, (y % side) * 16 + x % side});
        }
    return picture;
}

TEST(Scramble, ExchangesPairsOfWholeSquares) {
    constexpr int kSide = 5, kColumns = 31, kRows = 20;
    const Picture source = Numbered(kSide, kColumns, kRows, 3, 2);
    for (const int percent : {1, 50, 100, 200}) {
        Picture target(source.Width(), source.Height());
        engine::Scramble(source.View(), target.Target(), kSide, percent, {});
        const auto numberAt = [&](int square) {
            const Rgba p = target.At(square % kColumns * kSide, square / kColumns * kSide);
            return p.green * 256 + p.red;
        };
        int moved = 0;
        for (int square = 0; square < kColumns * kRows; ++square) {
            const int other = numberAt(square);
            EXPECT_EQ(numberAt(other), square) << "no exchange of two";
            if (other != square) ++moved;
        }
        EXPECT_EQ(moved, kColumns * kRows * std::min(percent, 100) / 100 / 2 * 2) << percent << " percent";
        for (int y = 0; y < source.Height(); ++y)
            for (int x = 0; x < source.Width(); ++x) {
                if (source.At(x, y).blue == 255)
                    EXPECT_EQ(target.At(x, y), source.At(x, y)) << "a cut square moved";
                else
                    EXPECT_EQ(target.At(x, y).alpha, source.At(x, y).alpha) << "a square is torn at " << x << "," << y;
            }
    }
}

}  // namespace
}  // namespace kelu::engine_test
