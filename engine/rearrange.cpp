// Pixels put elsewhere by rule or by hash.
// SPDX-License-Identifier: MIT
#include "engine/rearrange.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "engine/copy.h"
#include "engine/random_order.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/rearrange.cpp"
#include <hwy/foreach_target.h>

#include <hwy/cache_control.h>

#include "engine/bands.h"
#include "engine/random_inl.h"
#include "engine/random_order_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Where the squares [first, first + count) of Scramble come from; `from` has room for kLanes more. The first `moved`
// squares in a random order exchange places, each with the next one or the one before.
void PartnersOnTarget(const RandomOrder& order, int first, int count, int moved, std::uint32_t* from) {
    const RandomOrders orders(order);
    for (int i = 0; i < count; i += kLanes) {
        const Pixels here = hn::Min(ColumnNumbers(first + i), All(order.n - 1));
        const Pixels rank = orders.RankOf(here);
        const auto moves = hn::RebindMask(kPixels, hn::Lt(hn::BitCast(kInts, rank), All(moved)));
        const Pixels partner = orders.At(hn::IfThenElseZero(moves, hn::Xor(rank, All(1u))));
        hn::StoreU(hn::IfThenElse(moves, partner, here), kPixels, from + i);
    }
}

// `disc` holds the offsets to choose from, dx in the low 16 bits and dy in the high ones, at most 2^15 of them.
// Fills the columns [begin, end) of row `y`.
void SprayRow(const ImageView& source, const std::vector<std::uint32_t>& disc, const RandomRow& random, int y,
              int begin, int end, std::uint32_t* out) {
    const Ints lastX = All(source.width - 1), lastY = All(source.height - 1);
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(source.data);
    // Scattered reads are slow where they miss the caches: the row that the next result row adds to the disc comes
    // ahead.
    const std::uint32_t* const coming =
        source.Row(std::min(y + static_cast<int>(disc.back() >> 16) + 1, source.height - 1));
    const auto sample = [&](int x) HWY_ATTR {
        hwy::Prefetch(coming + x);
        const Pixels half = hn::ShiftRight<16>(RandomAt(random, x));
        const Pixels chosen = hn::ShiftRight<16>(hn::Mul(half, All(static_cast<std::uint32_t>(disc.size()))));
        const Ints offset = hn::BitCast(kInts, hn::GatherIndex(kPixels, disc.data(), hn::BitCast(kInts, chosen)));
        const Ints dx = hn::ShiftRight<16>(hn::ShiftLeft<16>(offset)), dy = hn::ShiftRight<16>(offset);
        const auto within = [](Ints at, Ints last) HWY_ATTR { return hn::Min(hn::Max(at, hn::Zero(kInts)), last); };
        const Ints column = within(hn::Add(dx, hn::BitCast(kInts, ColumnNumbers(x))), lastX),
                   row = within(hn::Add(dy, All(y)), lastY);
        const Ints step = All(static_cast<int>(source.stride / 4));
        return hn::GatherIndex(kPixels, pixels, hn::Add(hn::Mul(row, step), column));
    };
    int x = begin;
    for (; x + kLanes <= end; x += kLanes) hn::StoreU(sample(x), kPixels, out + x);
    if (x == end) return;
    std::uint32_t few[kLanes];
    hn::StoreU(sample(x), kPixels, few);
    std::copy(few, few + (end - x), out + x);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(PartnersOnTarget);
HWY_EXPORT(SprayRow);

constexpr int kScramble = 38, kSpray = 42, kTile = 44;

void CopyPixels(const std::uint32_t* from, int count, std::uint32_t* to) {
    std::memcpy(to, from, static_cast<std::size_t>(count) * 4);
}

// Every colour channel divided by 4 and rounded; alpha stays.
std::uint32_t Quarter(std::uint32_t pixel) {
    const std::uint32_t half = pixel >> 1 & 0x00010101u;
    return (pixel >> 2 & 0x003f3f3fu) + (half & 0x00010101u) + (pixel & 0xff000000u);
}

// Darkens what a tile throws its shadow on, to the right of it and below: half at its edge, less farther off.
// `left` to `right` and `top` to `bottom` is the tile, of which rows [begin, end) of the picture are done.
void ThrowShadow(const MutableImageView& target, int left, int right, int top, int bottom, int depth, int begin,
                 int end) {
    const auto darker = [](std::uint32_t pixel, int parts) {
        const auto p = static_cast<std::uint32_t>(256 - parts);
        const std::uint32_t even = ((pixel & 0x00ff00ffu) * p >> 8) & 0x00ff00ffu;
        return (pixel & 0xff000000u) | even | (((pixel >> 8 & 0xffu) * p >> 8) << 8);
    };
    for (int y = std::max(begin, top + depth); y < std::min(end, bottom + depth); ++y) {
        std::uint32_t* const row = target.Row(y);
        const int below = std::max(0, y - bottom + 1);
        const int from = below > 0 ? left + depth : right;
        for (int x = std::max(0, from); x < std::min(target.width, right + depth); ++x) {
            const int away = std::max(below, std::max(0, x - right + 1));
            row[x] = darker(row[x], 128 * (depth + 1 - away) / (depth + 1));
        }
    }
}

// The edges of a tile: the pixels [begin, end) of a row a quarter of the way to white, or to black.
void LightEdge(std::uint32_t* row, int begin, int end) {
    for (int x = begin; x < end; ++x) row[x] += ~row[x] >> 2 & 0x003f3f3fu;
}
void DarkenEdge(std::uint32_t* row, int begin, int end) {
    for (int x = begin; x < end; ++x) row[x] -= row[x] >> 2 & 0x003f3f3fu;
}

// How far the tile in `column` is moved: up to `reach` pixels either way, evenly.
int Shift(const RandomRow& random, int column, int reach) {
    return static_cast<int>(std::uint64_t{random(column)} * static_cast<std::uint64_t>(2 * reach + 1) >> 32) - reach;
}

}  // namespace

void Reverse(const ImageView& source, const MutableImageView& target, const Run& run) {
    SplitRows(run, source.height, source.width, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) std::reverse_copy(source.Row(y), source.Row(y) + source.width, target.Row(y));
    });
}

void Scramble(const ImageView& source, const MutableImageView& target, int side, int percent, const Run& run) {
    const int columns = side > 0 ? source.width / side : 0, rows = side > 0 ? source.height / side : 0;
    const std::int64_t squares = std::int64_t{columns} * rows;
    // The squares that stand first in a random order, an even number of them.
    const auto moved = static_cast<int>((squares * std::clamp(percent, 0, 100) + 50) / 100 & ~std::int64_t{1});
    if (moved == 0) return Copy(source, target, run);
    const RandomOrder order(static_cast<std::uint32_t>(squares), kScramble);

    const std::int64_t rowPixels = std::int64_t{source.width} * side;
    SplitRows(run, (source.height - 1) / side + 1, rowPixels, [&](int begin, int end) {
        std::vector<std::uint32_t> partners(static_cast<std::size_t>(columns) + 16);  // and the rest of a vector
        std::vector<const std::uint32_t*> from(static_cast<std::size_t>(columns));
        for (int row = begin; row < end; ++row) {
            const int top = row * side, bottom = std::min(source.height, top + side);
            const int whole = row < rows ? columns : 0;
            // Where each square comes from is found ahead of the copying, so that many fetches are on their way at
            // once.
            HWY_DYNAMIC_DISPATCH(PartnersOnTarget)(order, row * columns, whole, moved, partners.data());
            for (std::size_t column = 0; column < static_cast<std::size_t>(whole); ++column) {
                const std::uint32_t square = partners[column], across = static_cast<std::uint32_t>(columns);
                from[column] = source.Row(static_cast<int>(square / across) * side) + square % across * side;
                hwy::Prefetch(from[column]);
            }
            for (int y = top; y < bottom; ++y) {
                const std::ptrdiff_t down = (y - top) * (source.stride / 4);
                std::uint32_t* to = target.Row(y);
                for (std::size_t column = 0; column < static_cast<std::size_t>(whole); ++column, to += side) {
                    if (side == 1)
                        *to = *from[column];
                    else
                        CopyPixels(from[column] + down, side, to);
                }
                CopyPixels(source.Row(y) + whole * side, source.width - whole * side, to);
            }
        }
    });
}

void Tile(const ImageView& source, const MutableImageView& target, int side, int percent, const Run& run) {
    const int width = source.width, height = source.height;
    const int square = std::clamp(side, 1, std::max(width, height));
    const int reach = static_cast<int>((std::int64_t{square} * std::clamp(percent, 0, 100) + 50) / 100);
    if (reach == 0) return Copy(source, target, run);
    const int columns = (width - 1) / square + 1, rows = (height - 1) / square + 1;
    const int shadow = square / 16, edge = (square + 16) / 32;  // up to 6 and 3 pixels
    // Every band goes through all tiles that reach into it, which is worth it for some rows only.
    constexpr int kLeastRows = 8;
    const auto work = [&](int begin, int end) {
        for (int y = begin; y < end; ++y) std::transform(source.Row(y), source.Row(y) + width, target.Row(y), Quarter);
        // Tile rows that can reach into the band, and of each tile the part that lies in it.
        const int first = std::max(0, (begin - reach - shadow) / square - 1),
                  last = std::min(rows, (end + reach) / square + 1);
        for (int row = first; row < last; ++row) {
            const RandomRow across(row, kTile, 0), down(row, kTile, 1);
            const int top = row * square, bottom = std::min(height, top + square);
            for (int column = 0; column < columns; ++column) {
                const int dx = Shift(across, column, reach), dy = Shift(down, column, reach);
                const int left = std::max(0, column * square + dx);
                const int right = std::min(width, std::min(width, (column + 1) * square) + dx);
                if (left >= right) continue;
                ThrowShadow(target, column * square + dx, right, top + dy, bottom + dy, shadow, begin, end);
                // Its own ends, also where they lie outside the picture.
                const int own = column * square + dx, ownEnd = std::min(width, (column + 1) * square) + dx;
                for (int y = std::max(begin, top + dy); y < std::min(end, bottom + dy); ++y) {
                    std::uint32_t* const out = target.Row(y);
                    CopyPixels(source.Row(y - dy) + left - dx, right - left, out + left);
                    if (edge == 0) continue;
                    const bool light = y - dy - top < edge, dark = !light && bottom + dy - y <= edge;
                    const int lit = std::clamp(light ? right : own + edge, left, right);
                    LightEdge(out, left, lit);
                    DarkenEdge(out, std::clamp(dark ? lit : ownEnd - edge, lit, right), right);
                }
            }
        }
    };
    SplitRows(run, height, width, work, kLeastRows);
}

void Spray(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    if (radius <= 0) return Copy(source, target, run);
    const int reach = std::min(radius, 100);
    std::vector<std::uint32_t> disc;
    for (int dy = -reach; dy <= reach; ++dy)
        for (int dx = -reach; dx <= reach; ++dx)
            if (dx * dx + dy * dy <= reach * reach)
                disc.push_back(static_cast<std::uint32_t>(dy) << 16 | (static_cast<std::uint32_t>(dx) & 0xffff));
    // In pieces whose surroundings stay in the cache, however wide the picture is, and are not much larger than they.
    constexpr int kColumns = 1024;
    SplitRows(
        run, source.height, source.width,
        [&](int begin, int end) {
            for (int x = 0; x < source.width; x += kColumns)
                for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(SprayRow)
            (source, disc, RandomRow(y, kSpray, 0), y, x, std::min(x + kColumns, source.width), target.Row(y));
        },
        std::max(32, 2 * reach));
}

}  // namespace kelu::engine
#endif
