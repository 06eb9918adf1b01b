// Reliefs, class B.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/emboss.cpp"
#include <hwy/foreach_target.h>

#include "engine/direction.h"
#include "engine/dispatch.h"
#include "engine/emboss.h"
#include "engine/lengths.h"
#include "engine/luma_rows_inl.h"
#include "engine/neighbourhood_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// c + 2 (c[p - d] - c[p + d]), d the step of the direction. Where a neighbour is transparent its hidden colour counts
// for as little as it shows.
struct ColorEmbossKernel {
    Step step;

    Pixels operator()(const Neighbourhood& around) const {
        const Pixels pixels = around.At(0, 0), behind = around.At(-step.dx, -step.dy),
                     ahead = around.At(step.dx, step.dy);
        const ShortChannels here = SplitShorts(pixels), before = SplitShorts(behind), after = SplitShorts(ahead);
        ShortChannels relief{hn::Sub(before.blueRed, after.blueRed), hn::Sub(before.greenAlpha, after.greenAlpha)};
        const Pixels alpha = hn::ShiftRight<24>(hn::Min(behind, ahead));
        if (HWY_UNLIKELY(!hn::AllTrue(kPixels, hn::Eq(alpha, All(255u))))) {
            // Alpha in 2^15ths, 255 as 1; the product of the high halves is half of what is wanted.
            const Pixels part = hn::ShiftRight<1>(hn::Mul(alpha, All(257u)));
            const Shorts parts = hn::BitCast(kShorts, hn::Or(part, hn::ShiftLeft<16>(part)));
            relief.blueRed = hn::MulHigh(hn::Add(relief.blueRed, relief.blueRed), parts);
            relief.greenAlpha = hn::MulHigh(hn::Add(relief.greenAlpha, relief.greenAlpha), parts);
        }
        const auto raised = [](Shorts c, Shorts by) HWY_ATTR { return hn::Add(c, hn::Add(by, by)); };
        return JoinShorts({raised(here.blueRed, relief.blueRed), raised(here.greenAlpha, relief.greenAlpha)}, pixels);
    }
};

void ColorEmbossOnTarget(const ImageView& source, const MutableImageView& target, int direction, const Run& run) {
    // Two pixels at least: over one, a photograph hardly changes.
    const int step = static_cast<int>(std::lround(2 * LengthScale(source, run)));
    Passes passes(run);
    RenderNeighbourhoods(ColorEmbossKernel{StepOf(direction)}, source, target, std::clamp(step, 2, kMostStep), passes);
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
    RenderFromLuma(kernel, source, target, NeighbourStep(source, run), run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(ColorEmboss, direction)
KELU_DISPATCH(Emboss, direction, strength, offset)

}  // namespace kelu::engine
#endif
