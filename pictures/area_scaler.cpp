// Area averaging in two steps: rows that lie wholly inside an output row are added up first in 16 bits, which is nearly
// all of the work when a picture shrinks; then columns are added up in floating point.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "pictures/area_scaler.cpp"
#include <hwy/foreach_target.h>
// foreach_target first
#include <hwy/highway.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "engine/bands.h"
#include "pictures/area_scaler.h"

#ifndef KELU_AREA_SCALER_TAPS
#define KELU_AREA_SCALER_TAPS
namespace kelu {

// The source pixels of one output pixel along one side and their weights, which add up to 1.
struct Taps {
    int first, last;
    float firstWeight, middleWeight, lastWeight;
};

}  // namespace kelu
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// sums[i] += row[i] for `count` bytes; `count` is a multiple of 4 and both have room for whole vectors behind it.
void AddRow(const std::uint8_t* row, std::uint16_t* sums, std::size_t count) {
    const hn::ScalableTag<std::uint16_t> d16;
    const hn::Rebind<std::uint8_t, decltype(d16)> d8;
    const std::size_t lanes = hn::Lanes(d16);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto bytes = hn::PromoteTo(d16, hn::LoadU(d8, row + i));
        hn::StoreU(hn::Add(hn::LoadU(d16, sums + i), bytes), d16, sums + i);
    }
    for (; i < count; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + row[i]);
}

// mixed[i] += weight * row[i]
template <typename T>
HWY_INLINE void AddWeighted(const T* row, float weight, float* mixed, std::size_t count) {
    const hn::ScalableTag<float> df;
    const hn::Rebind<std::int32_t, decltype(df)> d32;
    const hn::Rebind<T, decltype(df)> dt;
    const std::size_t lanes = hn::Lanes(df);
    const auto w = hn::Set(df, weight);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto value = hn::ConvertTo(df, hn::PromoteTo(d32, hn::LoadU(dt, row + i)));
        hn::StoreU(hn::Add(hn::LoadU(df, mixed + i), hn::Mul(w, value)), df, mixed + i);
    }
    for (; i < count; ++i) mixed[i] += weight * static_cast<float>(row[i]);
}
void AddWeightedBytes(const std::uint8_t* row, float weight, float* mixed, std::size_t count) {
    AddWeighted(row, weight, mixed, count);
}
void AddWeightedSums(const std::uint16_t* row, float weight, float* mixed, std::size_t count) {
    AddWeighted(row, weight, mixed, count);
}

// One output row: the columns of each output pixel added up, all four channels at once.
void SumColumns(const float* mixed, int left, const Taps* columns, std::size_t count, std::uint8_t* out) {
    for (std::size_t i = 0; i < count; ++i, out += 4) {
        const Taps& taps = columns[i];
        const float* first = mixed + std::ptrdiff_t{4} * (taps.first - left);
        const float* last = mixed + std::ptrdiff_t{4} * (taps.last - left);
#if HWY_TARGET == HWY_SCALAR
        for (int c = 0; c < 4; ++c) {
            float sum = 0;
            for (const float* pixel = first + 4; pixel < last; pixel += 4) sum += pixel[c];
            sum = sum * taps.middleWeight + first[c] * taps.firstWeight;
            if (last > first) sum += last[c] * taps.lastWeight;
            out[c] = static_cast<std::uint8_t>(std::nearbyint(std::min(sum, 255.0f)));
        }
#else
        const hn::FixedTag<float, 4> d;
        const hn::Rebind<std::uint8_t, decltype(d)> d8;
        auto sum = hn::Zero(d);
        for (const float* pixel = first + 4; pixel < last; pixel += 4) sum = hn::Add(sum, hn::LoadU(d, pixel));
        sum = hn::Add(hn::Mul(sum, hn::Set(d, taps.middleWeight)),
                      hn::Mul(hn::LoadU(d, first), hn::Set(d, taps.firstWeight)));
        if (last > first) sum = hn::Add(sum, hn::Mul(hn::LoadU(d, last), hn::Set(d, taps.lastWeight)));
        hn::StoreU(hn::DemoteTo(d8, hn::NearestInt(hn::Min(sum, hn::Set(d, 255.0f)))), d8, out);
#endif
    }
}

}  // namespace kelu::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu {
HWY_EXPORT(AddRow);
HWY_EXPORT(AddWeightedBytes);
HWY_EXPORT(AddWeightedSums);
HWY_EXPORT(SumColumns);

namespace {

/// A side that keeps its length or at least doubles it: each pixel is the copy of one.
bool IsCopied(int length, int scaled) { return scaled == length || scaled >= 2 * std::int64_t{length}; }

/// Between the middles of two pixels, in proportion: copies would stand twice here and once there.
Taps MixedTaps(int position, int length, int scaled) {
    const std::int64_t unit = 2 * std::int64_t{scaled};  // of a source pixel
    const std::int64_t place = (2 * std::int64_t{position} + 1) * length - scaled;
    if (place <= 0) return {0, 0, 1.0f, 0.0f, 0.0f};
    const auto first = static_cast<int>(place / unit);
    if (first >= length - 1) return {length - 1, length - 1, 1.0f, 0.0f, 0.0f};
    const float part = static_cast<float>(place % unit) / static_cast<float>(unit);
    return {first, first + 1, 1.0f - part, 0.0f, part};
}

Taps NearestTaps(int position, int length, int scaled) {
    const int nearest = static_cast<int>((2 * std::int64_t{position} + 1) * length / (2 * std::int64_t{scaled}));
    return {nearest, nearest, 1.0f, 0.0f, 0.0f};
}

Taps TapsOf(int position, int length, int scaled) {
    if (scaled > length && !IsCopied(length, scaled)) return MixedTaps(position, length, scaled);
    if (scaled >= length) return NearestTaps(position, length, scaled);
    // In units of 1 / scaled of a source pixel everything is a whole number.
    const std::int64_t begin = std::int64_t{position} * length;
    const std::int64_t end = begin + length;
    const auto first = static_cast<int>(begin / scaled);
    const auto last = static_cast<int>((end - 1) / scaled);
    const auto whole = static_cast<float>(length);
    const auto firstPart = static_cast<float>((first + std::int64_t{1}) * scaled - begin);
    const auto lastPart = static_cast<float>(end - std::int64_t{last} * scaled);
    return {first, last, firstPart / whole, static_cast<float>(scaled) / whole, lastPart / whole};
}

std::vector<Taps> AllTaps(int begin, int end, int length, int scaled, decltype(TapsOf)& tapsOf = TapsOf) {
    std::vector<Taps> taps;
    taps.reserve(static_cast<std::size_t>(end - begin));
    for (int i = begin; i < end; ++i) taps.push_back(tapsOf(i, length, scaled));
    return taps;
}

// One band of output rows; owns the row buffers.
class Band {
 public:
    Band(const QImage& picture, const std::vector<Taps>& columns)
        : bits_(picture.constBits()),
          stride_(picture.bytesPerLine()),
          transparent_(picture.hasAlphaChannel()),
          columns_(columns),
          left_(columns.front().first),
          bytes_(static_cast<std::size_t>(columns.back().last + 1 - left_) * 4),
          sums_(bytes_),
          mixed_(bytes_),
          premultiplied_(transparent_ ? bytes_ : 0) {}

    void RenderRow(const Taps& rows, std::uint8_t* out) {
        std::fill(mixed_.begin(), mixed_.end(), 0.0f);
        HWY_DYNAMIC_DISPATCH(AddWeightedBytes)(Row(rows.first), rows.firstWeight, mixed_.data(), bytes_);
        // 257 rows of 255 are the most that 16 bits hold.
        for (int begin = rows.first + 1; begin < rows.last; begin += 256) {
            const int end = std::min(begin + 256, rows.last);
            std::fill(sums_.begin(), sums_.end(), std::uint16_t{0});
            for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(AddRow)(Row(y), sums_.data(), bytes_);
            HWY_DYNAMIC_DISPATCH(AddWeightedSums)(sums_.data(), rows.middleWeight, mixed_.data(), bytes_);
        }
        if (rows.last > rows.first)
            HWY_DYNAMIC_DISPATCH(AddWeightedBytes)(Row(rows.last), rows.lastWeight, mixed_.data(), bytes_);
        HWY_DYNAMIC_DISPATCH(SumColumns)(mixed_.data(), left_, columns_.data(), columns_.size(), out);
        if (transparent_) return;
        for (std::size_t i = 0; i < columns_.size(); ++i) out[4 * i + 3] = 255;
    }

 private:
    const std::uint8_t* Row(int y) {
        const std::uint8_t* row = bits_ + y * stride_ + std::ptrdiff_t{left_} * 4;
        if (!transparent_) return row;
        const auto* from = reinterpret_cast<const QRgb*>(row);
        auto* to = reinterpret_cast<QRgb*>(premultiplied_.data());
        for (std::size_t i = 0; i < bytes_ / 4; ++i) to[i] = qPremultiply(from[i]);
        return premultiplied_.data();
    }

    const std::uint8_t* bits_;
    std::ptrdiff_t stride_;
    bool transparent_;
    const std::vector<Taps>& columns_;
    int left_;
    std::size_t bytes_;
    std::vector<std::uint16_t> sums_;
    std::vector<float> mixed_;
    std::vector<std::uint8_t> premultiplied_;
};

void CopyNearest(const QImage& picture, const std::vector<Taps>& columns, int sourceRow, QRgb* out) {
    const auto* row =
        reinterpret_cast<const QRgb*>(picture.constBits() + std::ptrdiff_t{sourceRow} * picture.bytesPerLine());
    const bool transparent = picture.hasAlphaChannel();
    const int first = columns.front().first;
    if (!transparent && columns.back().first - first + 1 == static_cast<int>(columns.size())) {
        std::memcpy(out, row + first, columns.size() * 4);  // not magnified at all
        return;
    }
    for (const Taps& column : columns) *out++ = transparent ? qPremultiply(row[column.first]) : row[column.first];
}

}  // namespace

void ScaleArea(const QImage& picture, const QSize& scaled, const QRect& part, QImage& target, const QPoint& at) {
    if (part.isEmpty()) return;
    const auto columns = AllTaps(part.left(), part.right() + 1, picture.width(), scaled.width());
    const auto rows = AllTaps(part.top(), part.bottom() + 1, picture.height(), scaled.height());
    uchar* const bits = target.bits();
    const qsizetype stride = target.bytesPerLine();
    const auto renderRows = [&](int begin, int end) {
        const bool nearest = IsCopied(picture.width(), scaled.width()) && IsCopied(picture.height(), scaled.height());
        if (nearest) {
            for (int y = begin; y < end; ++y) {
                const auto i = static_cast<std::size_t>(y);
                uchar* out = bits + (at.y() + y) * stride + std::ptrdiff_t{at.x()} * 4;
                if (y > begin && rows[i].first == rows[i - 1].first)
                    std::memcpy(out, out - stride, columns.size() * 4);
                else
                    CopyNearest(picture, columns, rows[i].first, reinterpret_cast<QRgb*>(out));
            }
            return;
        }
        Band band(picture, columns);
        for (int y = begin; y < end; ++y)
            band.RenderRow(rows[static_cast<std::size_t>(y)],
                           bits + (at.y() + y) * stride + std::ptrdiff_t{at.x()} * 4);
    };
    const std::int64_t work =
        std::int64_t{columns.back().last - columns.front().first + 1} * (rows.back().last - rows.front().first + 1);
    // Waking a second thread costs more than the small rectangles of a stroke.
    if (work < 250'000 || part.height() < 16) {
        renderRows(0, part.height());
        return;
    }
    engine::SplitRows({}, part.height(), work / part.height(), renderRows, 8);
}

void SampleArea(const QImage& picture, const QSize& scaled, const QRect& part, QImage& target, const QPoint& at) {
    if (part.isEmpty()) return;
    const auto columns = AllTaps(part.left(), part.right() + 1, picture.width(), scaled.width(), NearestTaps);
    const auto rows = AllTaps(part.top(), part.bottom() + 1, picture.height(), scaled.height(), NearestTaps);
    uchar* const bits = target.bits() + std::ptrdiff_t{at.x()} * 4;
    const qsizetype stride = target.bytesPerLine();
    engine::SplitRows({}, part.height(), part.width(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            CopyNearest(picture, columns, rows[static_cast<std::size_t>(y)].first,
                        reinterpret_cast<QRgb*>(bits + (at.y() + y) * stride));
    });
}

PixelRange DependentPixels(int begin, int end, int length, int scaled) {
    // A pixel to either side is a cheap answer to all rounding, a second one to mixing.
    const int around = scaled > length ? 2 : 1;
    const auto first = static_cast<int>(std::int64_t{begin} * scaled / length);
    const auto last = static_cast<int>((std::int64_t{end} * scaled + length - 1) / length);
    return {std::max(0, first - around), std::min(scaled, last + around)};
}

}  // namespace kelu
#endif  // HWY_ONCE
