// 3x3 convolutions, class B: sum of w · c over the neighbourhood, divided, plus an offset. Kernels of small whole
// weights, which is nearly all of them, are computed in 16-bit integers, others in floats.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/convolution.cpp"
#include <hwy/foreach_target.h>

#include "engine/convolution.h"
#include "engine/lengths.h"
#include "engine/neighbourhood_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

struct WholeTap {
    int dx, dy;
    std::int16_t weight;
};

// (sum w · c + half) >> shift, plus offset. The sum stays within 16 bits: see FitsShorts.
struct WholeKernel {
    std::array<WholeTap, 9> taps;
    int count = 0;
    int shift = 0;
    std::int16_t offset = 0;

    HWY_INLINE Shorts Finish(Shorts sum) const {
        const Shorts half = hn::Set(kShorts, static_cast<std::int16_t>((1 << shift) >> 1));
        return hn::SaturatedAdd(hn::ShiftRightSame(hn::Add(sum, half), shift), hn::Set(kShorts, offset));
    }

    Pixels operator()(const Neighbourhood& around) const {
        ShortChannels sum{hn::Zero(kShorts), hn::Zero(kShorts)};
        for (int i = 0; i < count; ++i) {
            const WholeTap& tap = taps[static_cast<std::size_t>(i)];
            const ShortChannels there = SplitShorts(around.At(tap.dx, tap.dy));
            const Shorts weight = hn::Set(kShorts, tap.weight);
            sum.blueRed = hn::Add(sum.blueRed, hn::Mul(there.blueRed, weight));
            sum.greenAlpha = hn::Add(sum.greenAlpha, hn::Mul(there.greenAlpha, weight));
        }
        return JoinShorts({Finish(sum.blueRed), Finish(sum.greenAlpha)}, around.At(0, 0));
    }
};

// The same where corners weigh alike and sides weigh alike: each of the two is added up first. kCorners: corners count.
template <bool kCorners>
struct SymmetricKernel {
    WholeKernel whole;
    std::int16_t corner, side, middle;

    Pixels operator()(const Neighbourhood& around) const {
        const auto sum = [&](auto&& half) HWY_ATTR {
            const auto four = [&](Pixels a, Pixels b, Pixels c, Pixels d, std::int16_t weight) HWY_ATTR {
                const Shorts added = hn::Add(hn::Add(half(a), half(b)), hn::Add(half(c), half(d)));
                return hn::Mul(added, hn::Set(kShorts, weight));
            };
            Shorts total = hn::Mul(half(around.At(0, 0)), hn::Set(kShorts, middle));
            total = hn::Add(total, four(around.At(0, -1), around.At(-1, 0), around.At(1, 0), around.At(0, 1), side));
            if constexpr (kCorners)
                total = hn::Add(total,
                                four(around.At(-1, -1), around.At(1, -1), around.At(-1, 1), around.At(1, 1), corner));
            return whole.Finish(total);
        };
        return JoinShorts({sum([](Pixels p) HWY_ATTR { return SplitShorts(p).blueRed; }),
                           sum([](Pixels p) HWY_ATTR { return SplitShorts(p).greenAlpha; })},
                          around.At(0, 0));
    }
};

struct FloatKernel {
    Weights3x3 weights;
    float scale, offset;

    Pixels operator()(const Neighbourhood& around) const {
        Channels sum = Gray(hn::Zero(kFloats));
        for (int i = 0; i < 9; ++i) {
            const Channels there = Split(around.At(i % 3 - 1, i / 3 - 1));
            const Floats weight = All(weights[static_cast<std::size_t>(i)]);
            sum.blue = hn::Add(sum.blue, hn::Mul(there.blue, weight));
            sum.green = hn::Add(sum.green, hn::Mul(there.green, weight));
            sum.red = hn::Add(sum.red, hn::Mul(there.red, weight));
        }
        const auto finish = [this](Floats s) HWY_ATTR { return hn::Add(hn::Mul(s, All(scale)), All(offset)); };
        return Join({finish(sum.blue), finish(sum.green), finish(sum.red)}, around.At(0, 0));
    }
};

// Whole weights whose sums over bytes cannot leave 16 bits (with room for half of the divisor), and a divisor that is a
// shift.
inline bool FitsShorts(const Weights3x3& weights, float divisor) {
    float total = 0;
    for (const float weight : weights) {
        if (weight != std::floor(weight)) return false;
        total += std::abs(weight);
    }
    return total <= 127 && (divisor == 1 || divisor == 2 || divisor == 4 || divisor == 8 || divisor == 16);
}

void ConvolveOnTarget(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
                      int offset, int step, Passes& passes, const BandWork& after) {
    if (!FitsShorts(weights, divisor)) {
        RenderNeighbourhoods(FloatKernel{weights, 1 / divisor, static_cast<float>(offset)}, source, target, step,
                             passes, after);
        return;
    }
    WholeKernel kernel;
    for (int i = 0; i < 9; ++i)
        if (const auto weight = static_cast<std::int16_t>(weights[static_cast<std::size_t>(i)]); weight != 0)
            kernel.taps[static_cast<std::size_t>(kernel.count++)] = {i % 3 - 1, i / 3 - 1, weight};
    while (1 << kernel.shift < divisor) ++kernel.shift;
    kernel.offset = static_cast<std::int16_t>(offset);
    const auto weight = [&](int i) { return static_cast<std::int16_t>(weights[static_cast<std::size_t>(i)]); };
    const auto alike = [&](int a, int b, int c, int d) {
        return weight(a) == weight(b) && weight(a) == weight(c) && weight(a) == weight(d);
    };
    if (!alike(0, 2, 6, 8) || !alike(1, 3, 5, 7) || weight(1) == 0)
        RenderNeighbourhoods(kernel, source, target, step, passes, after);
    else if (weight(0) == 0)
        RenderNeighbourhoods(SymmetricKernel<false>{kernel, 0, weight(1), weight(4)}, source, target, step, passes,
                             after);
    else
        RenderNeighbourhoods(SymmetricKernel<true>{kernel, weight(0), weight(1), weight(4)}, source, target, step,
                             passes, after);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(ConvolveOnTarget);

// No picture needs more, and the arithmetic stays finite.
float Tame(float value) { return std::isfinite(value) ? std::clamp(value, -1e6f, 1e6f) : 0; }

void ConvolveAlone(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
                   int offset, const Run& run) {
    Passes passes(run);
    Convolve(source, target, weights, divisor, offset, NeighbourStep(source, run), passes);
}

// clang-format off
constexpr Weights3x3 kHighPass[] = {
    {-1, -1, -1,   -1,  9, -1,   -1, -1, -1},
    { 0, -1,  0,   -1,  5, -1,    0, -1,  0},
    { 1, -2,  1,   -2,  5, -2,    1, -2,  1},
};

// Scaled so that a photograph shows in each.
constexpr Weights3x3 kSpecial[] = {
    { -1,  1,  1,   -1, -2,  1,   -1,  1,  1},  // Gradient East
    {  1,  1,  1,    1, -2,  1,   -1, -1, -1},  // Gradient North
    { -1, -1, -1,    1, -2,  1,    1,  1,  1},  // Gradient South
    {  1,  1, -1,    1, -2, -1,    1,  1, -1},  // Gradient West
    {  0, -4,  0,   -4, 16, -4,    0, -4,  0},  // Laplace 1
    { -2, -2, -2,   -2, 16, -2,   -2, -2, -2},  // Laplace 2
    {  6,-12,  6,  -12, 24,-12,    6,-12,  6},  // Laplace 3
    { -4,  0, -4,    0, 16,  0,   -4,  0, -4},  // Laplace Diagonal
    {  0, -6,  0,    0, 12,  0,    0, -6,  0},  // Laplace Horizontal
    {  0,  0,  0,   -6, 12, -6,    0,  0,  0},  // Laplace Vertical
    {  1,  1,  1,    0,  0,  0,   -1, -1, -1},  // Prewitt Horizontal
    { -1,  0,  1,   -1,  0,  1,   -1,  0,  1},  // Prewitt Vertical
    { -3,  0,  0,    0,  3,  0,    0,  0,  0},  // Shift & Difference Diagonal
    {  0, -3,  0,    0,  3,  0,    0,  0,  0},  // Shift & Difference Horizontal
    {  0,  0,  0,   -3,  3,  0,    0,  0,  0},  // Shift & Difference Vertical
    {  1,  2,  1,    0,  0,  0,   -1, -2, -1},  // Sobel Horizontal
    { -1,  0,  1,   -2,  0,  2,   -1,  0,  1},  // Sobel Vertical
};
// clang-format on

// A row of a list, the nearest one for numbers outside it.
template <std::size_t kCount>
const Weights3x3& Chosen(const Weights3x3 (&list)[kCount], int kind) {
    return list[static_cast<std::size_t>(RepeatEdge(kind, static_cast<int>(kCount)))];
}

}  // namespace

void Convolve(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
              int offset, int step, Passes& passes, const BandWork& after) {
    Weights3x3 tame;
    std::transform(weights.begin(), weights.end(), tame.begin(), Tame);
    const float by = std::abs(Tame(divisor)) < 1e-6f ? 1 : Tame(divisor);
    HWY_DYNAMIC_DISPATCH(ConvolveOnTarget)
    (source, target, tame, by, std::clamp(offset, -10000, 10000), step, passes, after);
}

void HighPass(const ImageView& source, const MutableImageView& target, int kind, const Run& run) {
    ConvolveAlone(source, target, Chosen(kHighPass, kind), 1, 0, run);
}

void SpecialFilter(const ImageView& source, const MutableImageView& target, int kind, int offset, const Run& run) {
    ConvolveAlone(source, target, Chosen(kSpecial, kind), 1, offset, run);
}

}  // namespace kelu::engine
#endif
