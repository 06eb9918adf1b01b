// Borders, class A with a noise field.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/engine/borders.cpp"
#include <hwy/foreach_target.h>

#include "effects/engine/borders.h"
#include "effects/engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// The distance of each pixel of a row from the nearest edge of the picture, 0 for the outermost pixels.
struct EdgeDistance {
    int width, height;

    Floats operator()(int x, int y) const {
        const Floats left = Columns(x), right = hn::Sub(All(static_cast<float>(width - 1)), left);
        return hn::Min(hn::Min(left, right), All(static_cast<float>(std::min(y, height - 1 - y))));
    }
};

// c + (C1 - c) · (1 - smoothstep(distance / S1))
struct FadeKernel {
    EdgeDistance distance;
    float step;  // one over S1
    Color color;

    struct InRow {
        const FadeKernel& all;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            const Floats clear = Smoothstep(hn::Mul(all.distance(x, y), All(all.step)));
            return Join(Mix(AllOf(all.color), Split(pixels), clear), pixels);
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void FadeBordersOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                         const Run& run) {
    const int margin = std::max(depth, 0);
    const FadeKernel kernel{
        {source.width, source.height}, 1 / static_cast<float>(std::max(margin, 1)), Sensible(color)};
    RenderFrame(kernel, margin, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(FadeBordersOnTarget);

void FadeBorders(const ImageView& source, const MutableImageView& target, int depth, Color color, const Run& run) {
    HWY_DYNAMIC_DISPATCH(FadeBordersOnTarget)(source, target, depth, color, run);
}

}  // namespace kelu::engine
#endif
