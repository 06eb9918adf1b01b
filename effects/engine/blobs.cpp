// Drops from the topmost down, square by square of the result: what a drop above has covered is not drawn again, and a
// square that is covered is done. So the work is little more than one drawing of each pixel, however many drops lie
// over it.
// SPDX-License-Identifier: MIT
#include "effects/engine/blobs.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <numbers>
#include <tuple>
#include <vector>

#include "effects/engine/bands.h"
#include "effects/engine/pixel_memory.h"
#include "effects/engine/random.h"

namespace kelu::engine {
namespace {

constexpr int kEffect = 7;
constexpr int kMost = 100;  // of radius and spacing, image pixels

// What a drop does to one pixel: colour · light / 256 + gloss, over `cover` 256ths of it.
struct StampPixel {
    std::uint16_t light;
    std::uint8_t gloss;
    std::uint16_t cover;
};

// A drop, the same for all: half a ball lit from the upper left.
class Stamp {
 public:
    explicit Stamp(int radius) : radius_(radius), side_(2 * radius + 1) {
        for (int dy = -radius; dy <= radius; ++dy) {
            int half = -1;
            for (int dx = -radius; dx <= radius; ++dx) {
                pixels_.push_back(At(dx, dy));
                if (pixels_.back().cover > 0) half = std::max(half, std::abs(dx));
            }
            halves_.push_back(half);
        }
    }

    const StampPixel* Row(int dy) const { return pixels_.data() + (dy + radius_) * side_ + radius_; }
    /// Pixels from the middle to the end of a row, -1 for none.
    int Half(int dy) const { return halves_[static_cast<std::size_t>(dy + radius_)]; }

 private:
    StampPixel At(int dx, int dy) const {
        const double r = radius_ + 0.5, u = dx / r, v = dy / r, height = std::sqrt(std::max(0.0, 1 - u * u - v * v));
        const double lambert = std::max(0.0, (-u - v) * 0.5 + height * std::numbers::sqrt2 / 2);
        const double cover = std::clamp(r - std::hypot(dx, dy), 0.0, 1.0);
        return {static_cast<std::uint16_t>(std::lround(256 * (0.45 + 0.65 * lambert))),
                static_cast<std::uint8_t>(std::lround(70 * std::pow(lambert, 24))),
                static_cast<std::uint16_t>(std::lround(256 * cover))};
    }

    int radius_, side_;
    std::vector<StampPixel> pixels_;
    std::vector<int> halves_;
};

// The jittered grid. It reaches so far beyond the picture that every drop is in it that touches the picture.
class Grid {
 public:
    Grid(const ImageView& source, int radius, int spacing)
        : source_(source),
          spacing_(spacing),
          margin_(radius / spacing + 1),
          columns_((source.width - 1) / spacing + 1 + 2 * margin_),
          rows_((source.height - 1) / spacing + 1 + 2 * margin_),
          colors_(TakePixelMemory(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_) * 4)) {}

    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    std::uint32_t* Colors(int row) const {
        return reinterpret_cast<std::uint32_t*>(colors_.get()) + static_cast<std::ptrdiff_t>(row) * columns_;
    }
    /// The first and the last row or column whose drops can touch the pixels [begin, end).
    int FirstAt(int begin, int radius) const { return std::max(0, (begin - radius) / spacing_ - 1 + margin_); }
    int LastAt(int end, int radius, int count) const {
        return std::min(count - 1, (end + radius) / spacing_ + margin_);
    }

    int CenterX(int column, const RandomRow& jitter) const { return Center(column, jitter(column)); }
    int CenterY(int row, std::uint32_t jitter) const { return Center(row, jitter); }

    void TakeColors(int row) const {
        const RandomRow across(row, kEffect, 0), down(row, kEffect, 1);
        for (int column = 0; column < columns_; ++column)
            Colors(row)[column] = MeanAround(CenterX(column, across), CenterY(row, down(column)));
    }

 private:
    int Center(int cell, std::uint32_t jitter) const {
        return (cell - margin_) * spacing_ +
               static_cast<int>(std::uint64_t{jitter} * static_cast<std::uint64_t>(spacing_) >> 32);
    }

    // The mean of the square of side `spacing`, an odd number of pixels, round (x, y).
    std::uint32_t MeanAround(int x, int y) const {
        const int reach = spacing_ / 2;
        std::uint32_t sums[4] = {};
        for (int v = y - reach; v <= y + reach; ++v) {
            const std::uint32_t* const row = source_.Row(RepeatEdge(v, source_.height));
            for (int u = x - reach; u <= x + reach; ++u) {
                const std::uint32_t pixel = row[RepeatEdge(u, source_.width)];
                for (int c = 0; c < 4; ++c) sums[c] += pixel >> (8 * c) & 0xff;
            }
        }
        const auto count = static_cast<std::uint32_t>((2 * reach + 1) * (2 * reach + 1));
        std::uint32_t mean = 0;
        for (int c = 0; c < 4; ++c) mean |= (sums[c] + count / 2) / count << (8 * c);
        return mean;
    }

    const ImageView& source_;
    const int spacing_, margin_, columns_, rows_;
    const std::shared_ptr<std::uint8_t> colors_;
};

std::uint32_t Lit(std::uint32_t color, const StampPixel& stamp) {
    std::uint32_t lit = color & 0xff000000u;
    for (int c = 0; c < 3; ++c) {
        const std::uint32_t level = ((color >> (8 * c) & 0xff) * stamp.light + 128) / 256 + stamp.gloss;
        lit |= std::min(level, 255u) << (8 * c);
    }
    return lit;
}

// One square of the result.
class Square {
 public:
    static constexpr int kSide = 64;

    Square(const ImageView& source, const MutableImageView& target, int x, int y)
        : source_(source),
          target_(target),
          x_(x),
          y_(y),
          width_(std::min(kSide, target.width - x)),
          height_(std::min(kSide, target.height - y)),
          left_(height_) {
        const std::uint64_t outside = width_ == 64 ? 0 : ~std::uint64_t{0} << width_;
        std::fill(done_, done_ + kSide, outside);
        std::fill(open_, open_ + kSide * kSide, std::uint16_t{256});
        std::fill(&sums_[0][0], &sums_[0][0] + kSide * kSide * 4, std::uint16_t{0});
    }

    bool Covered() const { return left_ == 0; }
    int X() const { return x_; }
    int Y() const { return y_; }
    int Right() const { return x_ + width_; }
    int Bottom() const { return y_ + height_; }

    void Draw(const Stamp& stamp, int radius, int centerX, int centerY, std::uint32_t color) {
        const int top = std::max(0, centerY - radius - y_), bottom = std::min(height_ - 1, centerY + radius - y_);
        for (int row = top; row <= bottom; ++row) {
            const int dy = row + y_ - centerY, half = stamp.Half(dy), middle = centerX - x_;
            const int begin = std::max(0, middle - half), end = std::min(kSide, middle + half + 1);
            if (begin >= end) continue;
            const std::uint64_t span = ~std::uint64_t{0} >> (kSide - (end - begin)) << begin;
            std::uint64_t fresh = span & ~done_[row];
            if (fresh == 0) continue;
            const StampPixel* const line = stamp.Row(dy) - middle;
            while (fresh != 0) {
                const int x = std::countr_zero(fresh);
                fresh &= fresh - 1;
                DrawPixel(x, row, line[x], color);
            }
            if (done_[row] == ~std::uint64_t{0}) --left_;
        }
    }

    // Lets the picture show where no drop lies.
    void Finish() {
        for (int row = 0; row < height_; ++row) {
            std::uint64_t open = ~done_[row];
            while (open != 0) {
                const int x = std::countr_zero(open);
                open &= open - 1;
                AddPart(x, row, source_.Row(y_ + row)[x_ + x], open_[row * kSide + x]);
                Put(x, row);
            }
        }
    }

 private:
    void DrawPixel(int x, int row, const StampPixel& stamp, std::uint32_t color) {
        std::uint16_t& open = open_[row * kSide + x];
        if (open == 256 && stamp.cover == 256) {
            target_.Row(y_ + row)[x_ + x] = Lit(color, stamp);
            done_[row] |= std::uint64_t{1} << x;
            return;
        }
        const std::uint32_t part = (open * std::uint32_t{stamp.cover} + 128) / 256;
        AddPart(x, row, Lit(color, stamp), part);
        open = static_cast<std::uint16_t>(open - part);
        if (open > 0) return;
        Put(x, row);
        done_[row] |= std::uint64_t{1} << x;
    }

    void AddPart(int x, int row, std::uint32_t color, std::uint32_t part) {
        std::uint16_t* const sums = sums_[row * kSide + x];
        for (int c = 0; c < 4; ++c) sums[c] = static_cast<std::uint16_t>(sums[c] + (color >> (8 * c) & 0xff) * part);
    }

    void Put(int x, int row) {
        const std::uint16_t* const sums = sums_[row * kSide + x];
        std::uint32_t pixel = 0;
        for (int c = 0; c < 4; ++c) pixel |= (sums[c] + 128u) / 256 << (8 * c);
        target_.Row(y_ + row)[x_ + x] = pixel;
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, y_, width_, height_;
    int left_;                              // rows not yet covered
    std::uint64_t done_[kSide];             // a bit for each pixel
    std::uint16_t open_[kSide * kSide];     // 256ths of a pixel not yet covered
    std::uint16_t sums_[kSide * kSide][4];  // colour so far, 256ths of a level
};

}  // namespace

void Blobs(const ImageView& source, const MutableImageView& target, int radius, int spacing, const Run& run) {
    const int r = std::clamp(radius, 1, kMost);
    const Stamp stamp(r);
    const Grid grid(source, r, std::max(std::clamp(spacing, 1, kMost), (r + 3) / 4));
    Passes passes(run, 2);
    passes.Split(grid.Rows(), source.width, [&](int begin, int end) {
        for (int row = begin; row < end; ++row) grid.TakeColors(row);
    });

    const int across = (target.width - 1) / Square::kSide + 1, down = (target.height - 1) / Square::kSide + 1;
    passes.Split(across * down, Square::kSide * Square::kSide, [&](int begin, int end) {
        struct Drop {
            std::uint32_t order;
            int column, row;
        };
        std::vector<Drop> drops;
        for (int i = begin; i < end; ++i) {
            Square square(source, target, i % across * Square::kSide, i / across * Square::kSide);
            drops.clear();
            const int lastRow = grid.LastAt(square.Bottom(), r, grid.Rows());
            const int lastColumn = grid.LastAt(square.Right(), r, grid.Columns());
            for (int row = grid.FirstAt(square.Y(), r); row <= lastRow; ++row) {
                const RandomRow order(row, kEffect, 2);
                for (int column = grid.FirstAt(square.X(), r); column <= lastColumn; ++column)
                    drops.push_back({order(column), column, row});
            }
            std::sort(drops.begin(), drops.end(), [](const Drop& a, const Drop& b) {
                return std::tie(a.order, a.row, a.column) > std::tie(b.order, b.row, b.column);
            });
            for (const Drop& drop : drops) {
                square.Draw(stamp, r, grid.CenterX(drop.column, RandomRow(drop.row, kEffect, 0)),
                            grid.CenterY(drop.row, RandomRow(drop.row, kEffect, 1)(drop.column)),
                            grid.Colors(drop.row)[drop.column]);
                if (square.Covered()) break;
            }
            square.Finish();
        }
    });
}

}  // namespace kelu::engine
