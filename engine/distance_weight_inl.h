// The weight of distance_weight.h in vectors.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_DISTANCE_WEIGHT_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_DISTANCE_WEIGHT_INL
#undef KELU_ENGINE_DISTANCE_WEIGHT_INL
#else
#define KELU_ENGINE_DISTANCE_WEIGHT_INL
#endif

#include "engine/distance_weight.h"
#include "engine/lanes_inl.h"

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

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
