// Sliding counts and sums of 32 bands of brightness.
// SPDX-License-Identifier: MIT
#include "engine/oil_painting.h"

#include <algorithm>
#include <cstring>
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

// Every column keeps, for each band, the count and the sum of its pixels within the window's height.
// From row to row a column gains a pixel and loses one; from pixel to pixel the window gains a column and loses one
// (Perreault and Hébert, "Median Filtering in Constant Time", 2007). The window keeps all its counts, for these are
// compared at every pixel, but a band's sum follows only when the band wins: it then takes in the columns passed since
// it last did.

constexpr int kOilBands = 32;

// What a column of the window holds in each band. A sum of 2 · kMostOilRadius + 2 bytes fits 16 bits.
struct OilColumn {
    alignas(64) std::uint16_t counts[kOilBands];
    std::uint64_t sums[kOilBands];  // blue, green, red, alpha, 16 bits each
};
static_assert((2 * kMostOilRadius + 2) * 255 < 65536);

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

constexpr hn::ScalableTag<std::uint16_t> kCounts;
using CountVector = hn::Vec<decltype(kCounts)>;
constexpr int kCountLanes = static_cast<int>(hn::MaxLanes(kCounts));
constexpr int kCountVectors = kOilBands / kCountLanes;

// One pixel's four channels, as sums.
constexpr hn::CappedTag<std::uint32_t, 4> kSums;
constexpr hn::CappedTag<std::uint16_t, 4> kShortSums;
using SumVector = hn::Vec<decltype(kSums)>;

template <class V>
HWY_INLINE std::uint16_t Largest(V v) {
    const hn::CappedTag<std::uint16_t, 8> d;
    hn::Vec<decltype(d)> best;
    if constexpr (sizeof(V) == sizeof best) {
        best = v;
    } else {
        best = hn::Max(hn::LowerHalf(d, v), hn::UpperHalf(d, v));
    }
    best = hn::Max(best, hn::ShiftRightBytes<8>(d, best));
    best = hn::Max(best, hn::ShiftRightBytes<4>(d, best));
    best = hn::Max(best, hn::ShiftRightBytes<2>(d, best));
    return hn::GetLane(best);
}

// The counts of the window, in registers.
struct OilCounts {
    CountVector v[kCountVectors];

    HWY_INLINE void Add(const OilColumn& column) {
        for (int i = 0; i < kCountVectors; ++i)
            v[i] = hn::Add(v[i], hn::Load(kCounts, column.counts + i * kCountLanes));
    }
    HWY_INLINE void Subtract(const OilColumn& column) {
        for (int i = 0; i < kCountVectors; ++i)
            v[i] = hn::Sub(v[i], hn::Load(kCounts, column.counts + i * kCountLanes));
    }

    // The first band with the highest count.
    HWY_INLINE int FullestBand(std::uint16_t& count) const {
        CountVector best = v[0];
        for (int i = 1; i < kCountVectors; ++i) best = hn::Max(best, v[i]);
        count = Largest(best);
        const CountVector wanted = hn::Set(kCounts, count);
        int i = 0;
        while (i < kCountVectors - 1 && hn::AllFalse(kCounts, hn::Eq(v[i], wanted))) ++i;
        return i * kCountLanes + static_cast<int>(hn::FindKnownFirstTrue(kCounts, hn::Eq(v[i], wanted)));
    }
};

HWY_INLINE SumVector SumsOf(const OilColumn& column, int band) {
    return hn::PromoteTo(kSums, hn::Load(kShortSums, reinterpret_cast<const std::uint16_t*>(&column.sums[band])));
}

HWY_INLINE std::uint32_t MeanOf(SumVector sums, std::uint16_t count, std::uint32_t alphaOf) {
    const hn::RebindToFloat<decltype(kSums)> kReal;
    const hn::RebindToSigned<decltype(kSums)> kWhole;
    const auto mean = hn::Div(hn::ConvertTo(kReal, hn::BitCast(kWhole, sums)), hn::Set(kReal, count));
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
        columns_.resize(static_cast<std::size_t>(width_));
        for (auto* row : {&gained_, &lost_}) row->Resize(width_);
    }

    void Render(int begin, int end) {
        std::fill(columns_.begin(), columns_.end(), OilColumn{});
        first_ = OilColumn{};
        std::fill_n(&firstSums_[0][0], kOilBands * 4, 0u);
        for (int y = begin - radius_; y <= begin + radius_; ++y) {
            gained_.Read(source_, y, x_ - radius_);
            Update<false>();
        }
        RenderRow(begin);
        for (int y = begin + 1; y < end; ++y) {
            gained_.Read(source_, y + radius_, x_ - radius_);
            lost_.Read(source_, y - radius_ - 1, x_ - radius_);
            Update<true>();
            RenderRow(y);
        }
    }

 private:
    // A picture row: the band of each pixel and its channels as four sums.
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
        HWY_INLINE std::uint64_t Sums(int i) const {
            const std::uint64_t p = pixels[static_cast<std::size_t>(i)];
            const std::uint64_t far = (p | p << 16) & 0x0000ffff0000ffffu;
            return (far | far << 8) & 0x00ff00ff00ff00ffu;
        }
    };

    template <bool kAlsoLose>
    void Update() {
        for (int i = 0; i < width_; ++i) {
            OilColumn& column = columns_[static_cast<std::size_t>(i)];
            const std::uint32_t in = gained_.bands[static_cast<std::size_t>(i)];
            ++column.counts[in];
            column.sums[in] += gained_.Sums(i);
            if constexpr (kAlsoLose) {
                const std::uint32_t out = lost_.bands[static_cast<std::size_t>(i)];
                --column.counts[out];
                column.sums[out] -= lost_.Sums(i);
            }
        }
        // The same once more for the row's first window.
        for (int i = 0; i <= 2 * radius_; ++i) {
            const std::uint32_t in = gained_.bands[static_cast<std::size_t>(i)];
            ++first_.counts[in];
            for (int c = 0; c < 4; ++c)
                firstSums_[in][c] += gained_.pixels[static_cast<std::size_t>(i)] >> (8 * c) & 0xff;
            if constexpr (kAlsoLose) {
                const std::uint32_t out = lost_.bands[static_cast<std::size_t>(i)];
                --first_.counts[out];
                for (int c = 0; c < 4; ++c)
                    firstSums_[out][c] -= lost_.pixels[static_cast<std::size_t>(i)] >> (8 * c) & 0xff;
            }
        }
    }

    void RenderRow(int y) {
        alignas(16) std::uint32_t sums[kOilBands][4];
        int upTo[kOilBands] = {};  // the window, by its first column, that a band's sum belongs to
        std::memcpy(sums, firstSums_, sizeof sums);
        OilCounts counts;
        for (int i = 0; i < kCountVectors; ++i) counts.v[i] = hn::Load(kCounts, first_.counts + i * kCountLanes);

        const std::uint32_t* const alphaOf = source_.Row(y) + x_;
        std::uint32_t* const out = target_.Row(y) + x_;
        const OilColumn* const columns = columns_.data();
        const int side = 2 * radius_ + 1;
        for (int i = 0;; ++i) {
            std::uint16_t count;
            const int band = counts.FullestBand(count);
            SumVector sum = hn::Load(kSums, sums[band]);
            for (int at = upTo[band]; at < i; ++at)
                sum = hn::Add(sum, hn::Sub(SumsOf(columns[at + side], band), SumsOf(columns[at], band)));
            hn::Store(sum, kSums, sums[band]);
            upTo[band] = i;
            out[i] = MeanOf(sum, count, alphaOf[i]);
            if (i + 1 == count_) break;
            counts.Subtract(columns[i]);
            counts.Add(columns[i + side]);
        }
    }

    const ImageView& source_;
    const MutableImageView& target_;
    const int x_, count_, radius_, width_;
    std::vector<OilColumn> columns_;
    Row gained_, lost_;
    OilColumn first_;  // counts of the row's first window
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
