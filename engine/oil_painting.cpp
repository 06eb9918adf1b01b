// Counts of 32 bands of brightness, weighed by a pyramid, and sliding sums of their colours.
// SPDX-License-Identifier: MIT
#include "engine/oil_painting.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/oil_painting.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/dispatch.h"
#include "engine/lanes_inl.h"

#ifndef KELU_ENGINE_OIL_ONCE
#define KELU_ENGINE_OIL_ONCE
namespace kelu::engine {

// Every column keeps, for each band, how much its pixels weigh within the window's height, and their sum. The weight of
// a row falls evenly with its distance, so from row to row the weight changes by a slope, and the slope by three
// pixels: one that enters, one in the middle, one that leaves. Columns weigh likewise: from pixel to pixel the window's
// weights change by slopes, and these by three columns. The window keeps all its weights, for these are compared at
// every pixel, but a band's sum of colours follows only when the band wins: it then takes in the columns passed since
// it last did (both after Perreault and Hébert, "Median Filtering in Constant Time", 2007).

constexpr int kOilBands = 32;

// What a column of the window holds in each band. 2 · kMostOilRadius + 2 bytes, and the squared height of the pyramid,
// fit 16 bits.
struct OilColumn {
    alignas(64) std::uint16_t weights[kOilBands];
    std::int16_t slopes[kOilBands];
    std::uint64_t sums[kOilBands];  // blue, green, red, count, 16 bits each
};
static_assert((2 * kMostOilRadius + 2) * 255 < 65536);

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

constexpr hn::ScalableTag<std::uint32_t> kWeights;
constexpr hn::ScalableTag<std::int32_t> kSlopes;
constexpr hn::Rebind<std::uint16_t, decltype(kWeights)> kColumnWeights;
constexpr int kWeightLanes = static_cast<int>(hn::MaxLanes(kWeights));
constexpr int kWeightVectors = kOilBands / kWeightLanes;

// One pixel's colour and count, as sums.
constexpr hn::CappedTag<std::uint32_t, 4> kSums;
constexpr hn::CappedTag<std::uint16_t, 4> kShortSums;
using SumVector = hn::Vec<decltype(kSums)>;

// The weights of the window, in registers. Below a weight stand five bits that count the bands down: the largest of
// them all tells which it is, and of equals the first is the largest.
struct OilWeights {
    hn::Vec<decltype(kWeights)> v[kWeightVectors];
    hn::Vec<decltype(kWeights)> slope[kWeightVectors];
    static_assert(std::uint64_t{kMostOilRadius + 1} * (kMostOilRadius + 1) * (kMostOilRadius + 1) *
                      (kMostOilRadius + 1) * kOilBands <=
                  0xffffffffu);

    // The window whose first column is the first of `columns`.
    HWY_INLINE OilWeights(const OilColumn* columns, int radius) {
        for (int i = 0; i < kWeightVectors; ++i) {
            auto all = hn::Zero(kWeights), rising = hn::Zero(kWeights), falling = hn::Zero(kWeights);
            for (int at = 0; at <= radius; ++at) {
                const auto near = Column(columns[at], i);
                all = hn::Add(all, hn::Mul(near, hn::Set(kWeights, static_cast<std::uint32_t>(at + 1))));
                falling = hn::Add(falling, near);
            }
            for (int at = radius + 1; at <= 2 * radius + 1; ++at) {
                const auto far = Column(columns[at], i);
                all = hn::Add(all, hn::Mul(far, hn::Set(kWeights, static_cast<std::uint32_t>(2 * radius + 1 - at))));
                rising = hn::Add(rising, far);
            }
            const auto names = hn::Sub(hn::Set(kWeights, static_cast<std::uint32_t>(kOilBands - 1 - i * kWeightLanes)),
                                       hn::Iota(kWeights, 0));
            v[i] = hn::Add(hn::ShiftLeft<5>(all), names);
            slope[i] = hn::ShiftLeft<5>(hn::Sub(rising, falling));
        }
    }

    // From the window whose first column is *column to the next.
    HWY_INLINE void Move(const OilColumn* column, int radius) {
        for (int i = 0; i < kWeightVectors; ++i) {
            v[i] = hn::Add(v[i], slope[i]);
            const auto ends = hn::Add(Column(column[0], i), Column(column[2 * radius + 2], i));
            const auto middle = Column(column[radius + 1], i);
            slope[i] = hn::Add(slope[i], hn::ShiftLeft<5>(hn::Sub(ends, hn::Add(middle, middle))));
        }
    }

    // The first band of the highest weight.
    HWY_INLINE int FullestBand() const {
        auto best = v[0];
        for (int i = 1; i < kWeightVectors; ++i) best = hn::Max(best, v[i]);
        return kOilBands - 1 - static_cast<int>(hn::GetLane(hn::MaxOfLanes(kWeights, best)) % kOilBands);
    }

 private:
    static HWY_INLINE hn::Vec<decltype(kWeights)> Column(const OilColumn& column, int i) {
        return hn::PromoteTo(kWeights, hn::Load(kColumnWeights, column.weights + i * kWeightLanes));
    }
};

HWY_INLINE SumVector SumsOf(const OilColumn& column, int band) {
    return hn::PromoteTo(kSums, hn::Load(kShortSums, reinterpret_cast<const std::uint16_t*>(&column.sums[band])));
}

HWY_INLINE std::uint32_t MeanOf(SumVector sums, std::uint32_t alphaOf) {
    const hn::RebindToFloat<decltype(kSums)> kReal;
    const hn::RebindToSigned<decltype(kSums)> kWhole;
    const auto real = hn::ConvertTo(kReal, hn::BitCast(kWhole, sums));
    const auto mean = hn::Div(real, hn::Broadcast<3>(real));
    const auto level = hn::ConvertTo(kWhole, hn::Add(mean, hn::Set(kReal, 0.5f)));
    const auto bytes = hn::DemoteTo(hn::CappedTag<std::uint8_t, 4>(), level);
    const std::uint32_t pixel = hn::GetLane(hn::BitCast(hn::CappedTag<std::uint32_t, 1>(), bytes));
    return (pixel & ~kAlphaMask) | (alphaOf & kAlphaMask);
}

// A strip of result columns [x, x + count) and the columns of its windows.
class OilStrip {
 public:
    OilStrip(const ImageView& source, const MutableImageView& target, int x, int count, int radius)
        : source_(source), target_(target), x_(x), count_(count), radius_(radius), width_(count + 2 * radius) {
        columns_.resize(static_cast<std::size_t>(width_ + 2));  // two more are read, and change nothing
        for (Row* row : {&entering_, &middle_, &leaving_, &gone_}) row->Resize(width_);
    }

    void Render(int begin, int end) {
        std::fill(columns_.begin(), columns_.end(), OilColumn{});
        std::fill_n(&firstSums_[0][0], kOilBands * 4, 0u);
        const auto read = [&](Row& row, int y) { row.Read(source_, y, x_ - radius_); };
        for (int away = -radius_ - 1; away <= radius_; ++away) {
            read(away < -radius_ ? leaving_ : entering_, begin + away);
            if (away < -radius_)
                Weigh(leaving_, 0, -1);
            else
                Weigh(entering_, radius_ + 1 - std::abs(away), away < 0 ? -1 : 1);
            if (away >= -radius_) Sum(entering_, [](auto& sum, auto part) { sum += part; });
        }
        RenderRow(begin);
        for (int y = begin + 1; y < end; ++y) {
            std::swap(gone_, leaving_);
            read(entering_, y + radius_);
            read(middle_, y - 1);
            read(leaving_, y - radius_ - 1);
            for (int i = 0; i < width_; ++i) {
                OilColumn& column = columns_[static_cast<std::size_t>(i)];
                ++column.slopes[entering_.Band(i)];
                column.slopes[middle_.Band(i)] -= 2;
                ++column.slopes[gone_.Band(i)];
            }
            Sum(entering_, [](auto& sum, auto part) { sum += part; });
            Sum(leaving_, [](auto& sum, auto part) { sum -= part; });
            const hn::ScalableTag<std::int16_t> kShorts16;
            for (OilColumn& column : columns_)
                for (int i = 0; i < kOilBands; i += static_cast<int>(hn::MaxLanes(kShorts16))) {
                    auto* const weights = reinterpret_cast<std::int16_t*>(column.weights) + i;
                    hn::Store(hn::Add(hn::Load(kShorts16, weights), hn::Load(kShorts16, column.slopes + i)), kShorts16,
                              weights);
                }
            RenderRow(y);
        }
    }

 private:
    // A picture row: the band of each pixel and its channels.
    struct Row {
        std::vector<std::uint32_t> pixels, bands;

        void Resize(int width) {
            // Whole vectors are read and written.
            pixels.resize(static_cast<std::size_t>(width + kLanes));
            bands.resize(static_cast<std::size_t>(width + kLanes));
        }
        void Read(const ImageView& source, int y, int x) {
            const int width = static_cast<int>(pixels.size()) - kLanes;
            CopyRowRepeatingEdge(source, y, x, x + width, pixels.data());
            for (int i = 0; i < width; i += kLanes) {
                const Ints luma = LumaInts(hn::LoadU(kPixels, pixels.data() + i));
                hn::StoreU(hn::BitCast(kPixels, hn::ShiftRight<3>(luma)), kPixels, bands.data() + i);
            }
        }
        HWY_INLINE std::uint32_t Band(int i) const { return bands[static_cast<std::size_t>(i)]; }
        /// Blue, green, red and a count of one.
        HWY_INLINE std::uint32_t Parts(int i) const {
            return (pixels[static_cast<std::size_t>(i)] & ~kAlphaMask) | 1u << 24;
        }
    };

    void Weigh(const Row& row, int weight, int slope) {
        for (int i = 0; i < width_; ++i) {
            OilColumn& column = columns_[static_cast<std::size_t>(i)];
            column.weights[row.Band(i)] = static_cast<std::uint16_t>(column.weights[row.Band(i)] + weight);
            column.slopes[row.Band(i)] = static_cast<std::int16_t>(column.slopes[row.Band(i)] + slope);
        }
    }

    // Adds the row to the sums or takes it from them, and likewise to those of the first window.
    template <class Change>
    void Sum(const Row& row, Change change) {
        for (int i = 0; i < width_; ++i) {
            const std::uint64_t parts = row.Parts(i);
            const std::uint64_t far = (parts | parts << 16) & 0x0000ffff0000ffffu;
            change(columns_[static_cast<std::size_t>(i)].sums[row.Band(i)], (far | far << 8) & 0x00ff00ff00ff00ffu);
        }
        for (int i = 0; i <= 2 * radius_; ++i)
            for (int c = 0; c < 4; ++c) change(firstSums_[row.Band(i)][c], row.Parts(i) >> (8 * c) & 0xff);
    }

    void RenderRow(int y) {
        alignas(16) std::uint32_t sums[kOilBands][4];
        int upTo[kOilBands] = {};  // the window, by its first column, that a band's sum belongs to
        std::memcpy(sums, firstSums_, sizeof sums);
        const OilColumn* const columns = columns_.data();
        OilWeights weights(columns, radius_);

        const std::uint32_t* const alphaOf = source_.Row(y) + x_;
        std::uint32_t* const out = target_.Row(y) + x_;
        const int side = 2 * radius_ + 1;
        for (int i = 0;; ++i) {
            const int band = weights.FullestBand();
            SumVector sum = hn::Load(kSums, sums[band]);
            for (int at = upTo[band]; at < i; ++at)
                sum = hn::Add(sum, hn::Sub(SumsOf(columns[at + side], band), SumsOf(columns[at], band)));
            hn::Store(sum, kSums, sums[band]);
            upTo[band] = i;
            out[i] = MeanOf(sum, alphaOf[i]);
            if (i + 1 == count_) break;
            weights.Move(columns + i, radius_);
        }
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, count_, radius_, width_;
    std::vector<OilColumn> columns_;
    Row entering_, middle_, leaving_, gone_;
    alignas(16) std::uint32_t firstSums_[kOilBands][4];
};

void OilPaintingOnTarget(const ImageView& source, const MutableImageView& target, int radius, const Run& run) {
    const int width = source.width, height = source.height;
    // A strip's columns fit the second-level cache. Each piece begins with a window of rows that give no result, so
    // pieces are far higher than that.
    constexpr int kStrip = 384;
    const int pieceRows = std::max(256, 16 * radius);
    const int strips = (width - 1) / kStrip + 1, pieces = (height - 1) / pieceRows + 1;
    SplitRows(run, strips * pieces, std::min(kStrip, width) * pieceRows, [&](int begin, int end) HWY_ATTR {
        for (int i = begin; i < end; ++i) {
            const int x = i % strips * kStrip, y = i / strips * pieceRows;
            OilStrip(source, target, x, std::min(kStrip, width - x), radius).Render(y, std::min(height, y + pieceRows));
        }
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH_UP_TO(kMostOilRadius, radius, OilPainting, radius)

}  // namespace kelu::engine
#endif
