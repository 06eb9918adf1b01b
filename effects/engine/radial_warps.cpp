// Warps along rays. An effect is a function from the result's distance to the ratio of source distance to result
// distance, kept as a table over the distance; distances are in units of R, the effect's own radius.
// SPDX-License-Identifier: MIT
#include "effects/engine/radial_warps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "effects/engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/radial_warps.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/bands.h"
#include "effects/engine/bilinear_inl.h"

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

// A row of a warp, its constants in vectors.
class RadialRow {
 public:
    RadialRow(const RadialWarp& warp, const ImageView& source, int y)
        : sampler_(source),
          warp_(warp),
          ratio_(reinterpret_cast<const std::uint32_t*>(warp.ratio.data())),
          dy_(static_cast<float>(y) - warp.centerY),
          centerX_(All(warp.centerX)),
          centerY_(All(warp.centerY)),
          scale_(All(kRadialSteps / warp.radius)),
          lastX_(All(static_cast<float>(source.width - 1))),
          lastY_(All(static_cast<float>(source.height - 1))) {}

    HWY_INLINE Pixels operator()(int x) const {
        const Floats dx = hn::Sub(Columns(x), centerX_);
        const Floats distance = hn::Sqrt(hn::Add(hn::Mul(dx, dx), All(dy_ * dy_)));
        const Floats at = hn::Min(hn::Mul(distance, scale_), All(float{kRadialSteps}));
        const Ints entry = hn::ConvertTo(kInts, at);
        const Pairs entries(ratio_, entry);
        const Floats ratio = Mix(hn::BitCast(kFloats, entries.first), hn::BitCast(kFloats, entries.second),
                                 hn::Sub(at, hn::ConvertTo(kFloats, entry)));
        const Floats placeX = Place(dx, ratio, centerX_, lastX_), placeY = Place(All(dy_), ratio, centerY_, lastY_);
        const Pixels pixels = sampler_(Fixed(placeX), Fixed(placeY));
        if (warp_.outside == Outside::kEdgePixel) return pixels;
        if (warp_.outside == Outside::kColorBeyondRadius)
            return Cover(warp_.color, pixels, Clamp01(hn::Sub(All(warp_.radius + 0.5f), distance)));
        const Floats depth =
            hn::Min(hn::Min(placeX, hn::Sub(lastX_, placeX)), hn::Min(placeY, hn::Sub(lastY_, placeY)));
        return Cover(warp_.color, pixels, Clamp01(hn::Add(depth, All(1.0f))));
    }

 private:
    // Where the picture is far away, any place beyond its edge will do.
    static HWY_INLINE Floats Place(Floats d, Floats ratio, Floats center, Floats last) {
        return hn::Min(hn::Max(hn::Add(hn::Mul(d, ratio), center), All(-2.0f)), hn::Add(last, All(2.0f)));
    }
    static HWY_INLINE Ints Fixed(Floats place) { return hn::NearestInt(hn::Mul(place, All(256.0f))); }

    const BilinearSampler sampler_;
    const RadialWarp& warp_;
    const std::uint32_t* const ratio_;
    const float dy_;
    const Floats centerX_, centerY_, scale_, lastX_, lastY_;
};

void RenderRadialRow(const RadialWarp& warp, const ImageView& source, int y, std::uint32_t* out) {
    const RadialRow row(warp, source, y);
    int x = 0;
    for (; x + kLanes <= source.width; x += kLanes) hn::StoreU(row(x), kPixels, out + x);
    if (x == source.width) return;
    std::uint32_t few[kLanes];
    hn::StoreU(row(x), kPixels, few);
    std::copy(few, few + (source.width - x), out + x);
}

void RadialOnTarget(const RadialWarp& warp, const ImageView& source, const MutableImageView& target, const Run& run) {
    SplitRows(run, source.height, source.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) RenderRadialRow(warp, source, y, target.Row(y));
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
