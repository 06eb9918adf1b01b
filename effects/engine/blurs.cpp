// Blur 1 is a Gaussian, Blur 2 and 3 are means along paths by repeated doubling.
// SPDX-License-Identifier: MIT
#include "effects/engine/blurs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "effects/engine/bands.h"
#include "effects/engine/copy.h"
#include "effects/engine/gaussian.h"
#include "effects/engine/pixel_memory.h"
#include "effects/engine/warp.h"

namespace kelu::engine {
namespace {

// A mean of 2^n samples along a line or an arc takes n steps of two samples each: the samples stand evenly, so each
// step halves their number by taking the means of pairs that lie equally far apart, and that distance doubles from one
// step to the next. The widest step comes first: the narrow ones then hardly see what lies outside the picture.

// A turn and scaling round a centre: of (dx, dy) it makes (along · dx - across · dy, across · dx + along · dy).
struct Turn {
    double along, across;
};
Turn Scaled(double logarithm) { return {std::exp(logarithm), 0}; }
Turn Rotated(double radians) { return {std::cos(radians), std::sin(radians)}; }

// Places of a turned row, the nearest ones: the sums run in 14 bits more than places have.
void PlaceTurned(const Turn& turn, Point center, int x, int y, int count, Places& places) {
    constexpr int kFine = 14;
    const auto place = [=](double first, double step, std::int32_t* out) {
        const double whole = std::floor(first * kPlaceOne);
        const auto base = static_cast<std::int32_t>(whole);
        const auto rest = static_cast<std::int32_t>(std::lround((first * kPlaceOne - whole + 0.5) * (1 << kFine)));
        const auto fine = static_cast<std::int32_t>(std::lround(step * (kPlaceOne << kFine)));
        for (int i = 0; i < count; ++i) out[i] = base + ((rest + i * fine) >> kFine);
    };
    const double dx = x - center.x, dy = y - center.y;
    place(center.x + turn.along * dx - turn.across * dy, turn.along, places.x);
    place(center.y + turn.across * dx + turn.along * dy, turn.across, places.y);
}

// Means of two pixels, all four channels; halves go up or down, so that two steps in turn do not drift.
void MeanOfTwo(const std::uint32_t* a, const std::uint32_t* b, int count, bool up, std::uint32_t* out) {
    constexpr std::uint32_t kHalves = 0xfefefefeu;
    if (up)
        for (int i = 0; i < count; ++i) out[i] = (a[i] | b[i]) - (((a[i] ^ b[i]) & kHalves) >> 1);
    else
        for (int i = 0; i < count; ++i) out[i] = (a[i] & b[i]) + (((a[i] ^ b[i]) & kHalves) >> 1);
}

// 2^10 samples hide their spacing on any path; up to there it is at most one and a half pixels.
constexpr int kMostSteps = 10;
constexpr double kSpacing = 1.5;

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
        passes.Split(source.height, 2 * source.width, [&](int begin, int end) {
            Places places;
            std::uint32_t one[kWarpSpan], other[kWarpSpan];
            for (int y = begin; y < end; ++y)
                for (int x = 0; x < source.width; x += kWarpSpan) {
                    const int count = std::min(kWarpSpan, source.width - x);
                    PlaceTurned(back, center, x, y, count, places);
                    SampleBilinear(from, places, count, one);
                    PlaceTurned(forth, center, x, y, count, places);
                    SampleBilinear(from, places, count, other);
                    MeanOfTwo(one, other, count, step % 2 == 0, to.Row(y) + x);
                }
        });
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
