// What Blobs draws: the look of a drop, the grid of all drops, and those of one square of the result in their order.
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <memory>
#include <numbers>
#include <vector>

#include "engine/bands.h"
#include "engine/image_view.h"
#include "engine/pixel_memory.h"
#include "engine/random.h"

namespace kelu::engine {

constexpr int kBlobs = 7;        // the effect's number
constexpr int kBlobSquare = 64;  // side of the squares that the result is drawn in

/// A drop, the same for all: half a ball lit from the upper left, and the shadow that it throws on those below, nothing
/// but dark. A pixel of it becomes colour · light / 256 + gloss, over `cover` 256ths of the pixel; its word is
/// cover << 17 | gloss << 9 | light.
class BlobStamp {
 public:
    explicit BlobStamp(int radius) : radius_(radius), reach_(Reach(radius)), stride_(2 * (reach_ + kRoom) + 1) {
        for (int dy = -reach_; dy <= reach_; ++dy) {
            int half = -1;
            for (int dx = -reach_ - kRoom; dx <= reach_ + kRoom; ++dx) {
                words_.push_back(std::abs(dx) <= reach_ ? At(dx, dy) : 0);
                if (words_.back() != 0) half = std::max(half, std::abs(dx));
            }
            halves_.push_back(half);
        }
    }

    /// Pixels from the middle of a drop to the last that it or its shadow can touch.
    static int Reach(int radius) { return radius < kLeastShadowed ? radius : radius + (radius + 2) / 3; }
    int Reach() const { return reach_; }
    /// The middle of a row. To either side whole vectors may be read; beyond the drop it covers nothing.
    const std::uint32_t* Row(int dy) const { return words_.data() + (dy + reach_) * stride_ + reach_ + kRoom; }
    /// Pixels from the middle to the end of a row, -1 for none.
    int Half(int dy) const { return halves_[static_cast<std::size_t>(dy + reach_)]; }

 private:
    static constexpr int kRoom = 16;
    static constexpr int kLeastShadowed = 3;  // pixels of the radius

    std::uint32_t At(int dx, int dy) const {
        const double r = radius_ + 0.5, u = dx / r, v = dy / r, height = std::sqrt(std::max(0.0, 1 - u * u - v * v));
        const double lambert = std::max(0.0, (-u - v) * 0.5 + height * std::numbers::sqrt2 / 2);
        const double ball =
            std::max(std::abs(dx), std::abs(dy)) <= radius_ ? std::clamp(r - std::hypot(dx, dy), 0.0, 1.0) : 0;
        // The shadow lies a little to the right and below, and is soft.
        const double from = std::hypot(u - 0.12, v - 0.12), inward = std::clamp((1.15 - from) / 0.3, 0.0, 1.0);
        const double shadow = radius_ < kLeastShadowed ? 0 : 0.7 * inward * inward * (3 - 2 * inward);
        const double cover = ball + (1 - ball) * shadow, lit = cover > 0 ? ball / cover : 0;
        const double gloss = 50 * std::pow(lambert, 14) + 160 * std::pow(lambert, 50);
        const auto rounded = [](double value) { return static_cast<std::uint32_t>(std::lround(value)); };
        const std::uint32_t covered = rounded(256 * cover);
        return covered == 0 ? 0
                            : covered << 17 | rounded(lit * gloss) << 9 | rounded(lit * 256 * (0.64 + 0.56 * lambert));
    }

    int radius_, reach_, stride_;
    std::vector<std::uint32_t> words_;
    std::vector<int> halves_;
};

// The jittered grid. It reaches so far beyond the picture that every drop is in it that touches the picture.
class BlobGrid {
 public:
    BlobGrid(const ImageView& source, int radius, int spacing)
        : source_(source),
          touches_(BlobStamp::Reach(radius)),
          spacing_(spacing),
          margin_(touches_ / spacing + 1),
          columns_((source.width - 1) / spacing + 1 + 2 * margin_),
          rows_((source.height - 1) / spacing + 1 + 2 * margin_),
          reach_(radius / 8),
          colors_(NeedsColors()
                      ? TakePixelMemory(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_) * 4)
                      : nullptr) {}

    /// False where a drop takes the colour of a single pixel, which need not be found beforehand.
    bool NeedsColors() const { return reach_ > 0; }

    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    std::uint32_t ColorOf(int row, int column, int x, int y) const {
        return NeedsColors() ? Colors(row)[column]
                             : source_.Row(RepeatEdge(y, source_.height))[RepeatEdge(x, source_.width)];
    }
    /// The first and the last row or column whose drops can touch the pixels [begin, end).
    int FirstAt(int begin) const { return std::max(0, (begin - touches_) / spacing_ - 1 + margin_); }
    int LastAt(int end, int count) const { return std::min(count - 1, (end + touches_) / spacing_ + margin_); }

    int CenterX(int column, const RandomRow& jitter) const { return Center(column, jitter(column)); }
    int CenterY(int row, std::uint32_t jitter) const { return Center(row, jitter); }

    void TakeColors(int row) const {
        const RandomRow across(row, kBlobs, 0), down(row, kBlobs, 1);
        for (int column = 0; column < columns_; ++column)
            Colors(row)[column] = MeanAround(CenterX(column, across), CenterY(row, down(column)));
    }

 private:
    int Center(int cell, std::uint32_t jitter) const {
        return (cell - margin_) * spacing_ +
               static_cast<int>(std::uint64_t{jitter} * static_cast<std::uint64_t>(spacing_) >> 32);
    }

    std::uint32_t* Colors(int row) const {
        return reinterpret_cast<std::uint32_t*>(colors_.get()) + static_cast<std::ptrdiff_t>(row) * columns_;
    }

    // The mean of pixels that are spread evenly, three to nine in a row, over the square within the drop round (x, y).
    std::uint32_t MeanAround(int x, int y) const {
        const int step = std::max(1, reach_ / 3), steps = reach_ / step;
        std::uint32_t sums[4] = {};
        for (int v = -steps; v <= steps; ++v) {
            const std::uint32_t* const row = source_.Row(RepeatEdge(y + v * step, source_.height));
            for (int u = -steps; u <= steps; ++u) {
                const std::uint32_t pixel = row[RepeatEdge(x + u * step, source_.width)];
                for (int c = 0; c < 4; ++c) sums[c] += pixel >> (8 * c) & 0xff;
            }
        }
        const auto count = static_cast<std::uint32_t>((2 * steps + 1) * (2 * steps + 1));
        std::uint32_t mean = 0;
        for (int c = 0; c < 4; ++c) mean |= (sums[c] + count / 2) / count << (8 * c);
        return mean;
    }

    const ImageView& source_;
    const int touches_, spacing_, margin_, columns_, rows_, reach_;
    const std::shared_ptr<std::uint8_t> colors_;
};

// The drops that touch one square of the result, topmost first. They come in buckets of similar order, and a bucket is
// sorted when it is reached: a square is mostly covered long before the last.
class BlobDrops {
 public:
    struct Drop {
        std::uint32_t order;  // the higher lies above; of equals, the later in the grid
        int x, y;             // centre, image pixels
        std::uint32_t color;
    };

    /// For the square from (left, top) to before (right, bottom).
    void Take(const BlobGrid& grid, int left, int top, int right, int bottom) {
        found_.clear();
        std::fill(std::begin(begins_), std::end(begins_), 0u);
        const int firstColumn = grid.FirstAt(left), lastColumn = grid.LastAt(right, grid.Columns());
        const int lastRow = grid.LastAt(bottom, grid.Rows());
        for (int row = grid.FirstAt(top); row <= lastRow; ++row) {
            const RandomRow across(row, kBlobs, 0), down(row, kBlobs, 1), order(row, kBlobs, 2);
            for (int column = firstColumn; column <= lastColumn; ++column) {
                const int x = grid.CenterX(column, across), y = grid.CenterY(row, down(column));
                found_.push_back({order(column), x, y, grid.ColorOf(row, column, x, y)});
                ++begins_[Bucket(found_.back())];
            }
        }
        std::uint32_t end = 0;
        for (std::uint32_t& begin : begins_) begin = end += begin;
        sorted_.resize(found_.size());
        for (const Drop& drop : found_) sorted_[--begins_[Bucket(drop)]] = drop;
    }

    /// Calls `draw(drop)` for one drop after the other until it returns false.
    template <class Draw>
    void FromTheTop(Draw draw) {
        std::size_t end = sorted_.size();
        for (int bucket = kBuckets - 1; bucket >= 0; --bucket) {
            const std::size_t begin = begins_[bucket];
            // A few drops: each is moved up past those that lie below it.
            for (std::size_t i = begin + 1; i < end; ++i)
                for (std::size_t k = i; k > begin && sorted_[k - 1].order < sorted_[k].order; --k)
                    std::swap(sorted_[k - 1], sorted_[k]);
            for (std::size_t i = begin; i < end; ++i)
                if (!draw(sorted_[i])) return;
            end = begin;
        }
    }

 private:
    static constexpr int kBuckets = 1024;
    static std::uint32_t Bucket(const Drop& drop) { return drop.order >> 22; }

    std::vector<Drop> found_, sorted_;
    std::uint32_t begins_[kBuckets];
};

}  // namespace kelu::engine
