// Effects around a point, class A.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/around_point.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/around_point.h"
#include "effects/engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// w = smoothstep(d / R), d the distance from the point, R that of the farthest corner: 0 at the point, 1 at that
// corner.
struct DistanceWeight {
    float atX, atY, perRadius;

    DistanceWeight(Point at, int width, int height)
        : atX(static_cast<float>(at.x)),
          atY(static_cast<float>(at.y)),
          perRadius(1 / std::max(FarthestCorner(at, width, height), 1.0f)) {}

    Floats operator()(int x, int y) const {
        const float dy = static_cast<float>(y) - atY;
        const Floats dx = hn::Sub(Columns(x), All(atX));
        const Floats distance = hn::Sqrt(hn::Add(hn::Mul(dx, dx), All(dy * dy)));
        return Smoothstep(hn::Mul(distance, All(perRadius)));
    }
};

// c + 2.55 · S1 · w. The change is the same for all three channels, so it is rounded once and added to the bytes.
struct Brightness2Kernel {
    DistanceWeight weight;
    float change;  // 2.55 · |S1|
    bool darker;

    struct InRow {
        const Brightness2Kernel& all;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            const Bytes change = hn::BitCast(kBytes, Gray(ToByte(hn::Mul(all.weight(x, y), All(all.change)))));
            const Bytes bytes = hn::BitCast(kBytes, pixels);
            return hn::BitCast(kPixels, all.darker ? hn::SaturatedSub(bytes, change) : hn::SaturatedAdd(bytes, change));
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void Brightness2OnTarget(const ImageView& source, const MutableImageView& target, Point at, int amount,
                         const Run& run) {
    const float change = 2.55f * static_cast<float>(std::clamp(amount, -100, 100));
    const Brightness2Kernel kernel{{Sensible(at), source.width, source.height}, std::abs(change), change < 0};
    RenderPoints(kernel, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(Brightness2OnTarget);

void Brightness2(const ImageView& source, const MutableImageView& target, Point at, int amount, const Run& run) {
    HWY_DYNAMIC_DISPATCH(Brightness2OnTarget)(source, target, at, amount, run);
}

}  // namespace kelu::engine
#endif
