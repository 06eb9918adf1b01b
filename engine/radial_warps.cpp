// Warps along rays. An effect is a function from the result's distance to the ratio of source distance to result
// distance, kept as a table over the distance; distances are in units of R, the effect's own radius.
// SPDX-License-Identifier: MIT
#include "engine/radial_warps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/radial_warps.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/bilinear_inl.h"

#ifndef KELU_ENGINE_RADIAL_ONCE
#define KELU_ENGINE_RADIAL_ONCE
namespace kelu::engine {

// Linear between the entries: a hundredth of a pixel exact but for the innermost few pixels.
constexpr int kRadialSteps = 4096;

enum class Outside { kEdgePixel, kColorBeyondPicture, kColorBeyondRadius };

struct RadialWarp {
    float centerX, centerY;  // image pixels
    float radius;            // R in image pixels, above 0
    Outside outside;
    Color color;
    std::array<float, kRadialSteps + 2> ratio;

    // `ratioAt(r)` for r from 0 to 1; beyond, the ratio stays.
    template <class Function>
    void Fill(Function ratioAt) {
        for (int i = 0; i <= kRadialSteps; ++i)
            ratio[static_cast<std::size_t>(i)] = static_cast<float>(ratioAt(static_cast<double>(i) / kRadialSteps));
        ratio.back() = ratio[kRadialSteps];
    }
};

}  // namespace kelu::engine
#endif

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// `color` where `part` is 0, `pixels` where it is 1.
HWY_INLINE Pixels Cover(const Color& color, Pixels pixels, Floats part) {
    if (hn::AllTrue(kFloats, hn::Ge(part, All(1.0f)))) return pixels;
    const Channels mixed = Mix(AllOf(color), Split(pixels), part);
    const Floats alpha = Mix(All(255.0f), ToFloats(hn::ShiftRight<24>(pixels)), part);
    return Join(mixed, hn::ShiftLeft<24>(ToByte(alpha)));
}

// Where the pixels of a span come from, in 1/256 pixel, and what part of each is not the colour outside. Finding the
// places and sampling there are loops of their own: each alone is short enough for the processor to work on several
// vectors at once.
constexpr int kRadialSpan = 256;
struct RadialSpan {
    HWY_ALIGN std::int32_t x[kRadialSpan], y[kRadialSpan];
    HWY_ALIGN float part[kRadialSpan];
};

// A row of a warp, its constants in vectors.
class RadialRow {
 public:
    RadialRow(const RadialWarp& warp, const ImageView& source, int y)
        : ratio_(reinterpret_cast<const std::uint32_t*>(warp.ratio.data())),
          dy_(static_cast<float>(y) - warp.centerY),
          centerX_(All(warp.centerX)),
          centerY_(All(warp.centerY)),
          scale_(All(kRadialSteps / warp.radius)),
          rim_(All(warp.radius + 0.5f)),
          lastX_(All(static_cast<float>(source.width - 1))),
          lastY_(All(static_cast<float>(source.height - 1))) {}

    /// The places of the columns x to x + count, `count` rounded up to whole vectors.
    template <Outside kOutside>
    HWY_INLINE void Find(int x, int count, RadialSpan& span) const {
        for (int i = 0; i < count; i += kLanes) {
            const Floats dx = hn::Sub(Columns(x + i), centerX_), dy = All(dy_);
            const Floats distance = hn::Sqrt(hn::Add(hn::Mul(dx, dx), hn::Mul(dy, dy)));
            const Floats ratio = Ratio(distance);
            const Floats placeX = Place(dx, ratio, centerX_, lastX_), placeY = Place(dy, ratio, centerY_, lastY_);
            hn::Store(Fixed(placeX), kInts, span.x + i);
            hn::Store(Fixed(placeY), kInts, span.y + i);
            if constexpr (kOutside == Outside::kColorBeyondRadius)
                hn::Store(hn::Sub(rim_, distance), kFloats, span.part + i);
            if constexpr (kOutside == Outside::kColorBeyondPicture) {
                const Floats depth =
                    hn::Min(hn::Min(placeX, hn::Sub(lastX_, placeX)), hn::Min(placeY, hn::Sub(lastY_, placeY)));
                hn::Store(hn::Add(depth, All(1.0f)), kFloats, span.part + i);
            }
        }
    }

 private:
    // Source distance to result distance, from the table.
    HWY_INLINE Floats Ratio(Floats distance) const {
        const Floats at = hn::Min(hn::Mul(distance, scale_), All(float{kRadialSteps}));
        const Ints entry = hn::ConvertTo(kInts, at);
        const Pairs entries(ratio_, entry);
        return Mix(hn::BitCast(kFloats, entries.first), hn::BitCast(kFloats, entries.second),
                   hn::Sub(at, hn::ConvertTo(kFloats, entry)));
    }
    // Where the picture is far away, any place beyond its edge will do.
    static HWY_INLINE Floats Place(Floats d, Floats ratio, Floats center, Floats last) {
        return hn::Min(hn::Max(hn::Add(hn::Mul(d, ratio), center), All(-2.0f)), hn::Add(last, All(2.0f)));
    }
    static HWY_INLINE Ints Fixed(Floats place) { return hn::NearestInt(hn::Mul(place, All(256.0f))); }

    const std::uint32_t* const ratio_;
    const float dy_;
    const Floats centerX_, centerY_, scale_, rim_, lastX_, lastY_;
};

template <Outside kOutside>
void RenderRadialRow(const RadialWarp& warp, const ImageView& source, int y, std::uint32_t* out) {
    const RadialRow row(warp, source, y);
    const BilinearSampler sampler(source);
    const Color color = warp.color;
    RadialSpan span;
    for (int x = 0; x < source.width; x += kRadialSpan) {
        const int count = std::min(kRadialSpan, source.width - x);
        row.Find<kOutside>(x, count, span);
        const auto pixels = [&](int i) HWY_ATTR {
            const Pixels samples = sampler(hn::Load(kInts, span.x + i), hn::Load(kInts, span.y + i));
            if constexpr (kOutside == Outside::kEdgePixel) return samples;
            return Cover(color, samples, Clamp01(hn::Load(kFloats, span.part + i)));
        };
        int i = 0;
        for (; i + kLanes <= count; i += kLanes) hn::StoreU(pixels(i), kPixels, out + x + i);
        if (i == count) continue;
        std::uint32_t few[kLanes];
        hn::StoreU(pixels(i), kPixels, few);
        std::copy(few, few + (count - i), out + x + i);
    }
}

void RadialOnTarget(const RadialWarp& warp, const ImageView& source, const MutableImageView& target, const Run& run) {
    const auto render = warp.outside == Outside::kEdgePixel           ? RenderRadialRow<Outside::kEdgePixel>
                        : warp.outside == Outside::kColorBeyondRadius ? RenderRadialRow<Outside::kColorBeyondRadius>
                                                                      : RenderRadialRow<Outside::kColorBeyondPicture>;
    SplitRows(run, source.height, source.width, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) render(warp, source, y, target.Row(y));
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(RadialOnTarget);

RadialWarp Around(Point center, const ImageView& source, Outside outside, Color color) {
    const Point c = Sensible(center);
    const float farthest = FarthestCorner(c, source.width, source.height);
    return {static_cast<float>(c.x), static_cast<float>(c.y), std::max(farthest, 1.0f), outside, Sensible(color), {}};
}

}  // namespace

// The source lies at r^(1 + S1/50), R the distance of the farthest corner.
void Explode(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    const double power = std::min(strength, 100) / 50.0;
    RadialWarp warp = Around(center, source, Outside::kEdgePixel, {});
    warp.Fill([=](double r) { return std::pow(r, power); });
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(warp, source, target, run);
}

// The source lies at r^(1 / (1 + S1/50)): what Explode moves outward goes back.
void Implode(const ImageView& source, const MutableImageView& target, Point center, int strength, Color outside,
             const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    const double power = 1 / (1 + std::min(strength, 100) / 50.0) - 1;
    RadialWarp warp = Around(center, source, Outside::kColorBeyondPicture, outside);
    warp.Fill([=](double r) { return std::pow(std::max(r, 0.25 / kRadialSteps), power); });
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(warp, source, target, run);
}

// An angle of 0 to 90 degrees from the middle is spread evenly over R. The picture is a plane that is seen under 0.8 of
// that angle a, at tan(a) from its middle, so large that the rim meets the end of its shorter side: at 90 degrees a
// plane would have to be endless.
void FishEye(const ImageView& source, const MutableImageView& target, Color outside, const Run& run) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    const float radius = std::min(width, height) / 2;
    RadialWarp warp{(width - 1) / 2, (height - 1) / 2, radius, Outside::kColorBeyondRadius, Sensible(outside), {}};
    constexpr double kBend = 0.8 * std::numbers::pi / 2;
    const double reach = 1 / std::tan(kBend);
    warp.Fill([=](double r) { return r == 0 ? kBend * reach : std::tan(r * kBend) * reach / r; });
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(warp, source, target, run);
}

}  // namespace kelu::engine
#endif
