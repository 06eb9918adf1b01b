// Blur 1 is a Gaussian, Blur 2 a mean along rays by repeated doubling, Blur 3 one along arcs.
// SPDX-License-Identifier: MIT
#include "engine/blurs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/copy.h"
#include "engine/gaussian.h"
#include "engine/pixel_memory.h"
#include "engine/spin.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/blurs.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/bilinear_inl.h"

#ifndef KELU_ENGINE_BLURS_ONCE
#define KELU_ENGINE_BLURS_ONCE
namespace kelu::engine {

// Where a row of pixels goes when it is scaled round a centre. Sums run in 1/256 pixel and 14 more bits, which is exact
// to the nearest place over a span.
constexpr int kScaledSpan = 256;
constexpr int kFineBits = 14;
struct ScaledSpan {
    std::int32_t x, rest, step;  // 1/256 pixel; the same with kFineBits more; likewise, for each pixel
    std::int32_t y;              // 1/256 pixel

    ScaledSpan(double scale, Point center, int column, int row) {
        const double first = (center.x + scale * (column - center.x)) * 256, whole = std::floor(first);
        x = static_cast<std::int32_t>(whole);
        rest = static_cast<std::int32_t>(std::lround((first - whole + 0.5) * (1 << kFineBits)));
        step = static_cast<std::int32_t>(std::lround(scale * (256 << kFineBits)));
        y = static_cast<std::int32_t>(std::floor((center.y + scale * (row - center.y)) * 256 + 0.5));
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// The places of kLanes pixels after the other.
class ScaledPlaces {
 public:
    explicit HWY_INLINE ScaledPlaces(const ScaledSpan& span)
        : whole_(All(span.x)),
          fine_(hn::Add(All(span.rest), hn::Mul(hn::BitCast(kInts, ColumnNumbers(0)), All(span.step)))),
          step_(All(kLanes * span.step)) {}

    HWY_INLINE Ints Next() {
        const Ints place = hn::Add(whole_, hn::ShiftRight<kFineBits>(fine_));
        fine_ = hn::Add(fine_, step_);
        return place;
    }

 private:
    const Ints whole_;
    Ints fine_;
    const Ints step_;
};

// What a span wants of the source: all of it lies between two rows, so these are mixed first.
class MixedRow {
 public:
    MixedRow(const ImageView& source, const ScaledSpan& span, int count) {
        const int lastX = source.width - 1, lastY = source.height - 1;
        const auto column = [&](std::int32_t place) { return std::clamp(place >> 8, 0, lastX); };
        const std::int32_t lastPlace = span.x + ((span.rest + (count - 1) * span.step) >> kFineBits);
        first_ = column(span.x);
        last_ = std::min(column(lastPlace) + 1, lastX);
        least_ = All(first_ * 256);
        most_ = All(last_ * 256);
        const int y = std::clamp(span.y, 0, lastY * 256), row = y >> 8;
        const std::uint32_t *const above = source.Row(row), *const below = source.Row(std::min(row + 1, lastY));
        const Pixels weight = InBoth(All(static_cast<std::uint32_t>(y & 255)));
        const int all = last_ - first_ + 1;
        // The next result row will mostly need the next source row, which no processor foresees.
        const std::uint32_t* const ahead = source.Row(std::min(row + kRowsAhead, lastY)) + first_;
        int i = 0;
        for (; i + kLanes <= all; i += kLanes) {
            hwy::Prefetch(ahead + i);
            hn::StoreU(MixBytes(hn::LoadU(kPixels, above + first_ + i), hn::LoadU(kPixels, below + first_ + i), weight),
                       kPixels, mixed_ + i);
        }
        std::uint32_t few[2][kLanes] = {};
        std::copy(above + first_ + i, above + last_ + 1, few[0]);
        std::copy(below + first_ + i, below + last_ + 1, few[1]);
        hn::StoreU(MixBytes(hn::LoadU(kPixels, few[0]), hn::LoadU(kPixels, few[1]), weight), kPixels, mixed_ + i);
        mixed_[all] = mixed_[all - 1];
    }

    HWY_INLINE Pixels At(Ints place) const {
        place = hn::Min(hn::Max(place, least_), most_);
        const Ints column = hn::ShiftRight<8>(hn::Sub(place, least_));
        const Pixels right = InBoth(hn::And(hn::BitCast(kPixels, place), All(255u)));
        const int from = hn::GetLane(column);
        if (hn::AllTrue(kInts, hn::Eq(column, hn::BitCast(kInts, ColumnNumbers(from)))))
            return MixBytes(hn::LoadU(kPixels, mixed_ + from), hn::LoadU(kPixels, mixed_ + from + 1), right);
        const Pairs pairs(mixed_, column);
        return MixBytes(pairs.first, pairs.second, right);
    }

 private:
    static constexpr int kRowsAhead = 3;
    // A span is scaled by e^(1/4) at most, and there is room for a vector more.
    static constexpr int kRoom = kScaledSpan * 13 / 10 + 2 * kLanes;

    int first_, last_;   // columns
    Ints least_, most_;  // the same as places
    HWY_ALIGN std::uint32_t mixed_[kRoom];
};

// Means of the samples on two spans; halves go up or down.
void MeanOfScaled(const ImageView& source, const ScaledSpan& inner, const ScaledSpan& outer, bool up, int count,
                  std::uint32_t* out) {
    const MixedRow innerRow(source, inner, count), outerRow(source, outer, count);
    ScaledPlaces innerX(inner), outerX(outer);
    const Bytes down = hn::BitCast(kBytes, All(up ? 0u : 0xffffffffu));
    for (int i = 0; i < count; i += kLanes) {
        const Bytes a = hn::Xor(hn::BitCast(kBytes, innerRow.At(innerX.Next())), down);
        const Bytes b = hn::Xor(hn::BitCast(kBytes, outerRow.At(outerX.Next())), down);
        const Pixels mean = hn::BitCast(kPixels, hn::Xor(hn::AverageRound(a, b), down));
        if (i + kLanes <= count) {
            hn::StoreU(mean, kPixels, out + i);
        } else {
            std::uint32_t few[kLanes];
            hn::StoreU(mean, kPixels, few);
            std::copy(few, few + (count - i), out + i);
        }
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

// A mean of 2^n samples along a ray takes n steps of two samples each: the samples stand evenly, so each step halves
// their number by taking the means of pairs that lie equally far apart, and that distance doubles from one step to the
// next. The widest step comes first: the narrow ones then hardly see what lies outside the picture.

HWY_EXPORT(MeanOfScaled);

// Of 2^8 samples each is worth a level at most, so their spacing does not show on any path; up to there it is at most
// three pixels.
constexpr int kMostSteps = 8;
constexpr double kSpacing = 3;

// Least rows of a band, which is done span by span from the left: the spans under one another want nearly the same
// rows, and so they are still in the cache.
constexpr int kScaledRows = 32;

// The mean from e^-reach to e^reach times the distance.
void MeanAlongRays(const ImageView& source, const MutableImageView& target, Point at, double reach, const Run& run) {
    const Point center = Sensible(at);
    const double longest = 2 * reach * static_cast<double>(FarthestCorner(center, source.width, source.height));
    const int steps =
        std::clamp(static_cast<int>(std::ceil(std::log2(std::max(1.0, longest / kSpacing)))), 1, kMostSteps);

    const auto row = static_cast<std::ptrdiff_t>(source.width) * 4;
    const auto memory =
        steps > 1 ? TakePixelMemory(static_cast<std::size_t>(row) * static_cast<std::size_t>(source.height)) : nullptr;
    const MutableImageView between{memory.get(), source.width, source.height, row};
    ImageView from = source;
    Passes passes(run, steps);
    for (int step = steps - 1; step >= 0; --step) {
        const double distance = std::ldexp(reach, step - steps);
        const double inner = std::exp(-distance), outer = std::exp(distance);
        const MutableImageView to = step % 2 == 0 ? target : between;
        // Halves go up in one step and down in the next, so that the picture grows neither brighter nor darker.
        const bool up = step % 2 == 0;
        passes.Split(
            source.height, source.width,
            [&](int begin, int end) {
                for (int x = 0; x < source.width; x += kScaledSpan)
                    for (int y = begin; y < end; ++y) HWY_DYNAMIC_DISPATCH(MeanOfScaled)
                (from, ScaledSpan(inner, center, x, y), ScaledSpan(outer, center, x, y), up,
                 std::min(kScaledSpan, source.width - x), to.Row(y) + x);
            },
            kScaledRows);
        from = to;
    }
}

}  // namespace

void Blur1(const ImageView& source, const MutableImageView& target, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    const double sigma = std::min(strength, 100) / 2.0;
    Passes passes(run, GaussianPasses(sigma));
    GaussianBlur(source, target, sigma, passes);
}

void Blur2(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    MeanAlongRays(source, target, center, std::min(strength, 100) / 200.0, run);
}

void Blur3(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    SpinBlur(source, target, Sensible(center), std::min(strength, 100) * 0.18 * std::numbers::pi / 180, run);
}

}  // namespace kelu::engine
#endif
