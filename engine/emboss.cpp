// Reliefs, class B.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/emboss.cpp"
#include <hwy/foreach_target.h>

#include "engine/direction.h"
#include "engine/dispatch.h"
#include "engine/emboss.h"
#include "engine/luma_rows_inl.h"
#include "engine/neighbourhood_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// c + (c[p - d] - c[p + d]), d the unit step of the direction.
struct ColorEmbossKernel {
    Step step;

    Pixels operator()(const Neighbourhood& around) const {
        const Pixels pixels = around.At(0, 0);
        const ShortChannels here = SplitShorts(pixels);
        const ShortChannels before = SplitShorts(around.At(-step.dx, -step.dy));
        const ShortChannels after = SplitShorts(around.At(step.dx, step.dy));
        return JoinShorts({hn::Add(here.blueRed, hn::Sub(before.blueRed, after.blueRed)),
                           hn::Add(here.greenAlpha, hn::Sub(before.greenAlpha, after.greenAlpha))},
                          pixels);
    }
};

void ColorEmbossOnTarget(const ImageView& source, const MutableImageView& target, int direction, const Run& run) {
    RenderNeighbourhoods(ColorEmbossKernel{StepOf(direction)}, source, target, run);
}

// S2 + S1 · (Y[p - d] - Y[p + d])
struct EmbossKernel {
    Step step;
    int strength, offset;

    Pixels operator()(const LumaNeighbourhood& luma, Pixels pixels) const {
        const Ints difference = hn::Sub(luma.At(-step.dx, -step.dy), luma.At(step.dx, step.dy));
        const Ints relief = hn::Add(hn::Mul(difference, All(strength)), All(offset));
        const Ints clamped = hn::Min(hn::Max(relief, hn::Zero(kInts)), All(255));
        return KeepAlpha(Gray(hn::BitCast(kPixels, clamped)), pixels);
    }
};

void EmbossOnTarget(const ImageView& source, const MutableImageView& target, int direction, int strength, int offset,
                    const Run& run) {
    const EmbossKernel kernel{StepOf(direction), std::clamp(strength, -1000, 1000), std::clamp(offset, 0, 255)};
    RenderFromLuma(kernel, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(ColorEmboss, direction)
KELU_DISPATCH(Emboss, direction, strength, offset)

}  // namespace kelu::engine
#endif
