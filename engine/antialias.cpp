// Antialias, class B. The gradient of luma (Sobel's kernels) tells whether there is an edge and where it runs. The
// result is the mean of two samples half a step away along the edge to either side, each between the pixel and three of
// its neighbours: a straight edge keeps its sharpness, the corners of a staircase are rounded off.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/antialias.cpp"
#include <hwy/foreach_target.h>

#include "engine/antialias.h"
#include "engine/dispatch.h"
#include "engine/luma_rows_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

struct AntialiasKernel {
    // Sobel's kernels give four times the step of a straight edge: a step of 24 levels is an edge.
    static constexpr int kEdge = 4 * 24;

    // Added while two channels share a lane: half the work of taking both apart first.
    static HWY_INLINE Channels SumOf(Pixels one, Pixels other) {
        const ShortChannels a = SplitShorts(one), b = SplitShorts(other);
        const Pixels blueRed = hn::BitCast(kPixels, hn::Add(a.blueRed, b.blueRed));
        const Pixels green = hn::BitCast(kPixels, hn::Add(a.greenAlpha, b.greenAlpha));
        const Pixels low = All(0xffffu);
        return {ToFloats(hn::And(blueRed, low)), ToFloats(hn::And(green, low)), ToFloats(hn::ShiftRight<16>(blueRed))};
    }

    Pixels operator()(const LumaNeighbourhood& luma, const Neighbourhood& around) const {
        const Pixels pixels = around.At(0, 0);
        const Ints northWest = luma.At(-1, -1), north = luma.At(0, -1), northEast = luma.At(1, -1);
        const Ints west = luma.At(-1, 0), east = luma.At(1, 0);
        const Ints southWest = luma.At(-1, 1), south = luma.At(0, 1), southEast = luma.At(1, 1);
        const Ints rising = hn::Sub(southEast, northWest), falling = hn::Sub(northEast, southWest);
        const Ints toEast = hn::Sub(east, west), toSouth = hn::Sub(south, north);
        const Ints gradientX = hn::Add(hn::Add(rising, falling), hn::Add(toEast, toEast));
        const Ints gradientY = hn::Add(hn::Sub(rising, falling), hn::Add(toSouth, toSouth));
        const Ints sizeX = hn::Abs(gradientX), sizeY = hn::Abs(gradientY), size = hn::Max(sizeX, sizeY);
        const auto edge = hn::Gt(size, All(kEdge - 1));
        if (hn::AllFalse(kInts, edge)) return pixels;

        // The edge runs across the gradient. Half a step along it is ax columns and ay rows, the larger of the two 1/2.
        const Floats half = hn::Div(All(0.5f), hn::ConvertTo(kFloats, hn::Max(size, All(1))));
        const Floats ax = hn::Mul(hn::ConvertTo(kFloats, sizeY), half);
        const Floats ay = hn::Mul(hn::ConvertTo(kFloats, sizeX), half);
        const Floats bx = hn::Sub(All(1.0f), ax), by = hn::Sub(All(1.0f), ay);
        // It leads to the north-east where the gradient points into the south-east or the north-west quarter.
        const auto sameSign = hn::Lt(hn::Zero(kInts), hn::Mul(gradientX, gradientY));
        const auto diagonal = [&](int dy) HWY_ATTR {
            const Ints east1 = hn::BitCast(kInts, around.At(1, dy)), west1 = hn::BitCast(kInts, around.At(-1, dy));
            return hn::BitCast(
                kPixels, dy < 0 ? hn::IfThenElse(sameSign, east1, west1) : hn::IfThenElse(sameSign, west1, east1));
        };

        const Channels here = Split(pixels);
        Channels sum{hn::Mul(here.blue, hn::Mul(bx, by)), hn::Mul(here.green, hn::Mul(bx, by)),
                     hn::Mul(here.red, hn::Mul(bx, by))};
        const auto addPair = [&](Pixels one, Pixels other, Floats weight) HWY_ATTR {
            const Channels both = SumOf(one, other);
            const Floats each = hn::Mul(weight, All(0.5f));
            sum.blue = hn::Add(sum.blue, hn::Mul(both.blue, each));
            sum.green = hn::Add(sum.green, hn::Mul(both.green, each));
            sum.red = hn::Add(sum.red, hn::Mul(both.red, each));
        };
        addPair(around.At(-1, 0), around.At(1, 0), hn::Mul(ax, by));
        addPair(around.At(0, -1), around.At(0, 1), hn::Mul(bx, ay));
        addPair(diagonal(-1), diagonal(1), hn::Mul(ax, ay));
        const Ints blended = hn::BitCast(kInts, JoinInRange(sum, pixels));
        return hn::BitCast(kPixels, hn::IfThenElse(edge, blended, hn::BitCast(kInts, pixels)));
    }
};

void AntialiasOnTarget(const ImageView& source, const MutableImageView& target, const Run& run) {
    RenderBesideLuma(AntialiasKernel{}, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

KELU_DISPATCH(Antialias)

}  // namespace kelu::engine
#endif
