// Blur 1 is a Gaussian, Blur 2 and 3 are means along paths by repeated doubling.
// SPDX-License-Identifier: MIT
#include "engine/blurs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/copy.h"
#include "engine/gaussian.h"
#include "engine/pixel_memory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/blurs.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/bilinear_inl.h"

#ifndef KELU_ENGINE_BLURS_ONCE
#define KELU_ENGINE_BLURS_ONCE
namespace kelu::engine {

// A turn and scaling round a centre: of (dx, dy) it makes (along · dx - across · dy, across · dx + along · dy).
struct Turn {
    double along, across;
};

// Where a row of pixels goes. Sums run in 1/256 pixel and 14 more bits, which is exact to the nearest place over a
// span.
constexpr int kTurnSpan = 256;
constexpr int kFineBits = 14;
struct TurnedSpan {
    struct Axis {
        std::int32_t whole, rest, step;  // 1/256 pixel; the same with kFineBits more; likewise, for each pixel
    } x, y;

    TurnedSpan(const Turn& turn, Point center, int column, int row) {
        const double dx = column - center.x, dy = row - center.y;
        x = On(center.x + turn.along * dx - turn.across * dy, turn.along);
        y = On(center.y + turn.across * dx + turn.along * dy, turn.across);
    }

 private:
    static Axis On(double first, double step) {
        const double whole = std::floor(first * 256);
        return {static_cast<std::int32_t>(whole),
                static_cast<std::int32_t>(std::lround((first * 256 - whole + 0.5) * (1 << kFineBits))),
                static_cast<std::int32_t>(std::lround(step * (256 << kFineBits)))};
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// The places of kLanes pixels after the other.
class TurnedPlaces {
 public:
    explicit HWY_INLINE TurnedPlaces(const TurnedSpan::Axis& axis)
        : whole_(All(axis.whole)),
          fine_(hn::Add(All(axis.rest), hn::Mul(hn::BitCast(kInts, ColumnNumbers(0)), All(axis.step)))),
          step_(All(kLanes * axis.step)) {}

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

// Means of the samples on two spans; halves go up or down.
void MeanOfTurned(const ImageView& source, const TurnedSpan& back, const TurnedSpan& forth, bool up, int count,
                  std::uint32_t* out) {
    const BilinearSampler sampler(source);
    TurnedPlaces backX(back.x), backY(back.y), forthX(forth.x), forthY(forth.y);
    const Bytes down = hn::BitCast(kBytes, All(up ? 0u : 0xffffffffu));
    for (int i = 0; i < count; i += kLanes) {
        const Ints x0 = backX.Next(), y0 = backY.Next(), x1 = forthX.Next(), y1 = forthY.Next();
        const Bytes a = hn::Xor(hn::BitCast(kBytes, sampler(x0, y0)), down);
        const Bytes b = hn::Xor(hn::BitCast(kBytes, sampler(x1, y1)), down);
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

// A mean of 2^n samples along a line or an arc takes n steps of two samples each: the samples stand evenly, so each
// step halves their number by taking the means of pairs that lie equally far apart, and that distance doubles from one
// step to the next. The widest step comes first: the narrow ones then hardly see what lies outside the picture.

HWY_EXPORT(MeanOfTurned);

Turn Scaled(double logarithm) { return {std::exp(logarithm), 0}; }
Turn Rotated(double radians) { return {std::cos(radians), std::sin(radians)}; }

// Of 2^8 samples each is worth a level at most, so their spacing does not show on any path; up to there it is at most
// three pixels.
constexpr int kMostSteps = 8;
constexpr double kSpacing = 3;

// Least rows of a band, which is done span by span from the left: a turned span crosses rows that the spans under it
// want, too, and so they are still in the cache.
constexpr int kTurnRows = 32;

// The mean over the turns of -reach to reach. `turn` makes a turn of a logarithm or of radians.
template <class MakeTurn>
void MeanAlong(const ImageView& source, const MutableImageView& target, Point at, double reach, MakeTurn turn,
               const Run& run) {
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
        const Turn back = turn(-distance), forth = turn(distance);
        const MutableImageView to = step % 2 == 0 ? target : between;
        // Halves go up in one step and down in the next, so that the picture grows neither brighter nor darker.
        const bool up = step % 2 == 0;
        passes.Split(
            source.height, source.width,
            [&](int begin, int end) {
                for (int x = 0; x < source.width; x += kTurnSpan)
                    for (int y = begin; y < end; ++y) {
                        const TurnedSpan one(back, center, x, y), other(forth, center, x, y);
                        const int count = std::min(kTurnSpan, source.width - x);
                        HWY_DYNAMIC_DISPATCH(MeanOfTurned)(from, one, other, up, count, to.Row(y) + x);
                    }
            },
            kTurnRows);
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
    MeanAlong(source, target, center, std::min(strength, 100) / 200.0, Scaled, run);
}

void Blur3(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    const double degrees = std::min(strength, 100) * 0.18;
    MeanAlong(source, target, center, degrees * std::numbers::pi / 180, Rotated, run);
}

}  // namespace kelu::engine
#endif
