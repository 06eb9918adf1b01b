// Warps along rays within an ellipse. Distances are in parts of its radius. An effect is a function from the result's
// distance to the ratio of source distance to result distance, kept as a table.
// SPDX-License-Identifier: MIT
#include "engine/radial_warps.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/radial_warps.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/bilinear_inl.h"
#include "engine/cubic_inl.h"
#include "engine/random.h"

#ifndef KELU_ENGINE_RADIAL_ONCE
#define KELU_ENGINE_RADIAL_ONCE
namespace kelu::engine {

// Linear between the entries: a hundredth of a pixel exact but for the innermost few pixels.
constexpr int kRadialSteps = 4096;

enum class Outside { kNone, kColorInMiddle, kColorBeyondRim };

struct RadialWarp {
    float centerX, centerY;  // image pixels
    float radiusX, radiusY;  // semi-axes, image pixels, above 0
    Outside outside;
    Color color;
    float part;  // of the colour in the middle, 0 to 1
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

HWY_INLINE Pixels Dimmed(Pixels pixels, Floats light) {
    const Channels c = Split(pixels);
    return JoinInRange({hn::Mul(c.blue, light), hn::Mul(c.green, light), hn::Mul(c.red, light)}, pixels);
}

// Where the pixels of a span come from, in 1/256 pixel, and what part of each is not the colour outside or, without
// one, is sampled as a cubic; how bright a pixel of the ball is. Finding the places and sampling there are loops of
// their own: each alone is short enough for the processor to work on several vectors at once.
constexpr int kRadialSpan = 256;
struct RadialSpan {
    HWY_ALIGN std::int32_t x[kRadialSpan], y[kRadialSpan];
    HWY_ALIGN float part[kRadialSpan], light[kRadialSpan];
};

// A row of a warp, its constants in vectors.
class RadialRow {
 public:
    RadialRow(const RadialWarp& warp, const ImageView& source, int y)
        : ratio_(reinterpret_cast<const std::uint32_t*>(warp.ratio.data())),
          dy_(static_cast<float>(y) - warp.centerY),
          v_(dy_ / warp.radiusY),
          rim_(std::min(warp.radiusX, warp.radiusY)),
          fromEdge_(1 / (kDamped * std::min(warp.radiusX, warp.radiusY))),
          calm_(engine::Smoothstep(static_cast<float>(std::min(y, source.height - 1 - y)) * fromEdge_)),
          part_(warp.part),
          centerX_(All(warp.centerX)),
          centerY_(All(warp.centerY)),
          perX_(All(1 / warp.radiusX)),
          perHalfX_(All(2 / static_cast<float>(source.width))),
          perHalfY_(All(2 / static_cast<float>(source.height))),
          lastX_(All(static_cast<float>(source.width - 1))),
          lastY_(All(static_cast<float>(source.height - 1))) {}

    /// The places of the columns x to x + count, `count` rounded up to whole vectors.
    template <Outside kOutside>
    HWY_INLINE void Find(int x, int count, RadialSpan& span) const {
        for (int i = 0; i < count; i += kLanes) {
            const Floats dx = hn::Sub(Columns(x + i), centerX_), dy = All(dy_);
            const Floats u = hn::Mul(dx, perX_);
            const Floats distance = hn::Sqrt(hn::Add(hn::Mul(u, u), All(v_ * v_)));
            Floats ratio;
            if constexpr (kOutside == Outside::kColorBeyondRim) {
                ratio = OfBall(dx, dy, distance);
                hn::Store(hn::Add(hn::Mul(hn::Sub(All(1.0f), distance), All(rim_)), All(0.5f)), kFloats, span.part + i);
                hn::Store(LightOfBall(distance), kFloats, span.light + i);
            } else {
                ratio = Ratio(distance);
            }
            if constexpr (kOutside == Outside::kColorInMiddle) {
                const Floats inward = Smoothstep(hn::Sub(All(1.0f), hn::Mul(distance, All(1 / kDarkMiddle))));
                hn::Store(hn::Sub(All(1.0f), hn::Mul(inward, All(part_))), kFloats, span.part + i);
                // Near the picture's edges less is moved, so that nothing is fetched from beyond them.
                const Floats column = Columns(x + i);
                const Floats near = hn::Min(column, hn::Sub(lastX_, column));
                const Floats calm = hn::Mul(Smoothstep(hn::Mul(near, All(fromEdge_))), All(calm_));
                ratio = Mix(All(1.0f), ratio, calm);
            }
            // Cubic where the picture is enlarged one and a half times and more, wholly so from twice on.
            if constexpr (kOutside == Outside::kNone)
                hn::Store(Clamp01(hn::Sub(All(4.0f), hn::Mul(ratio, All(6.0f)))), kFloats, span.part + i);
            hn::Store(Fixed(Place(dx, ratio, centerX_, lastX_)), kInts, span.x + i);
            hn::Store(Fixed(Place(dy, ratio, centerY_, lastY_)), kInts, span.y + i);
        }
    }

 private:
    // In parts of the radius: the middle that Implode darkens, the way from an edge on which it moves less.
    static constexpr float kDarkMiddle = 0.12f, kDamped = 0.42f;
    static constexpr float kBall = 0.55f;

    // Source distance to result distance, from the table.
    HWY_INLINE Floats Ratio(Floats distance) const {
        const Floats at = hn::Min(hn::Mul(distance, All(float{kRadialSteps})), All(float{kRadialSteps}));
        const Ints entry = hn::ConvertTo(kInts, at);
        const Pairs entries(ratio_, entry);
        return Mix(hn::BitCast(kFloats, entries.first), hn::BitCast(kFloats, entries.second),
                   hn::Sub(at, hn::ConvertTo(kFloats, entry)));
    }
    // Of Fish Eye, at the offset (dx, dy): kBall in the middle, and on the rim what leads to the ellipse in the
    // picture.
    HWY_INLINE Floats OfBall(Floats dx, Floats dy, Floats distance) const {
        const auto square = [](Floats v) HWY_ATTR { return hn::Mul(v, v); };
        const Floats ofBorder =
            hn::Max(hn::Sqrt(hn::Add(square(hn::Mul(dx, perHalfX_)), square(hn::Mul(dy, perHalfY_)))), All(1e-6f));
        const Floats fourth = square(square(hn::Min(distance, All(1.0f))));
        return hn::Add(All(kBall), hn::Mul(hn::Sub(hn::Div(distance, ofBorder), All(kBall)), fourth));
    }
    // How dark the ball grows towards its rim.
    static HWY_INLINE Floats LightOfBall(Floats distance) {
        const Floats r = hn::Min(distance, All(1.0f)), square = hn::Mul(r, r), fourth = hn::Mul(square, square);
        return hn::Sub(All(1.0f), hn::Mul(hn::Mul(hn::Mul(fourth, fourth), square), All(0.35f)));
    }
    // Where the picture is far away, any place beyond its edge will do.
    static HWY_INLINE Floats Place(Floats d, Floats ratio, Floats center, Floats last) {
        return hn::Min(hn::Max(hn::Add(hn::Mul(d, ratio), center), All(-2.0f)), hn::Add(last, All(2.0f)));
    }
    static HWY_INLINE Ints Fixed(Floats place) { return hn::NearestInt(hn::Mul(place, All(256.0f))); }

    const std::uint32_t* const ratio_;
    const float dy_, v_, rim_, fromEdge_, calm_, part_;
    const Floats centerX_, centerY_, perX_, perHalfX_, perHalfY_, lastX_, lastY_;
};

template <Outside kOutside>
void RenderRadialRow(const RadialWarp& warp, const ImageView& source, int y, std::uint32_t* out) {
    const RadialRow row(warp, source, y);
    const BilinearSampler sampler(source);
    const CubicSampler cubic(source);
    const Color color = warp.color;
    RadialSpan span;
    for (int x = 0; x < source.width; x += kRadialSpan) {
        const int count = std::min(kRadialSpan, source.width - x);
        row.Find<kOutside>(x, count, span);
        const auto pixels = [&](int i) HWY_ATTR {
            const Pixels samples = sampler(hn::Load(kInts, span.x + i), hn::Load(kInts, span.y + i));
            if constexpr (kOutside == Outside::kNone) {
                if (hn::AllTrue(kFloats, hn::Eq(hn::Load(kFloats, span.part + i), hn::Zero(kFloats)))) return samples;
                HWY_ALIGN std::uint32_t lanes[kLanes];
                hn::Store(samples, kPixels, lanes);
                for (int k = 0; k < kLanes; ++k)
                    if (span.part[i + k] > 0) lanes[k] = cubic(span.x[i + k], span.y[i + k], span.part[i + k]);
                return hn::Load(kPixels, lanes);
            }
            const Floats part = Clamp01(hn::Load(kFloats, span.part + i));
            if constexpr (kOutside == Outside::kColorBeyondRim) {
                // Beyond the rim there is nothing but the colour.
                if (hn::AllTrue(kFloats, hn::Eq(part, hn::Zero(kFloats)))) return Cover(color, samples, part);
                return Cover(color, Dimmed(samples, hn::Load(kFloats, span.light + i)), part);
            }
            return Cover(color, samples, part);
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
    const auto render = warp.outside == Outside::kNone            ? RenderRadialRow<Outside::kNone>
                        : warp.outside == Outside::kColorInMiddle ? RenderRadialRow<Outside::kColorInMiddle>
                                                                  : RenderRadialRow<Outside::kColorBeyondRim>;
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

// A circle of half the picture's diagonal.
RadialWarp Around(Point center, const ImageView& source, Outside outside, Color color) {
    const Point c = Sensible(center);
    const float radius = std::hypot(static_cast<float>(source.width), static_cast<float>(source.height)) / 2;
    return {static_cast<float>(c.x), static_cast<float>(c.y), radius, radius, outside, Sensible(color), 0, {}};
}

// Explode fetches r from r · (1 - k (1 - r²)³): 1 / (1 - k) times as large in the middle, fourfold at most, and nothing
// is moved at the rim.
double Strength(int strength) { return 1 - 1 / (1 + 3 * std::sqrt(std::clamp(strength, 0, 100) / 100.0)); }
double RatioOf(double r, double k) { return 1 - k * std::pow(1 - r * r, 3); }

}  // namespace

void Explode(const ImageView& source, const MutableImageView& target, Point center, int strength, const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    RadialWarp warp = Around(center, source, Outside::kNone, {});
    const double k = Strength(strength);
    warp.Fill([=](double r) { return RatioOf(r, k); });
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(warp, source, target, run);
}

// What Explode moves outward goes back; the middle, where all comes together, grows dark.
void Implode(const ImageView& source, const MutableImageView& target, Point center, int strength, Color outside,
             const Run& run) {
    if (strength <= 0) return Copy(source, target, run);
    RadialWarp warp = Around(center, source, Outside::kColorInMiddle, outside);
    const double k = Strength(strength);
    warp.part = std::pow(static_cast<float>(std::min(strength, 100)) / 100, 3.0f);
    warp.Fill([=](double r) {
        if (r == 0) return 1 / (1 - k);
        double low = r, high = 1;  // r · RatioOf(r) grows with r
        for (int i = 0; i < 40; ++i) {
            const double middle = (low + high) / 2;
            (middle * RatioOf(middle, k) < r ? low : high) = middle;
        }
        return low / r;
    });
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(warp, source, target, run);
}

// A ball that touches the nearer sides and holds the picture up to its ellipse: even in the middle, closer and
// darker to the rim.
void FishEye(const ImageView& source, const MutableImageView& target, Color outside, const Run& run) {
    const float width = static_cast<float>(source.width), height = static_cast<float>(source.height);
    const float radius = std::min(width, height) / 2;
    const RadialWarp ball{(width - 1) / 2,          (height - 1) / 2,  radius, radius,
                          Outside::kColorBeyondRim, Sensible(outside), 0,      {}};
    HWY_DYNAMIC_DISPATCH(RadialOnTarget)(ball, source, target, run);
}

}  // namespace kelu::engine
#endif
