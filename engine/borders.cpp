// Borders, class A with a noise field.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/borders.cpp"
#include <hwy/foreach_target.h>

#include <vector>

#include "engine/borders.h"
#include "engine/dispatch.h"
#include "engine/point_inl.h"
#include "engine/random_inl.h"

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

// How far the colour reaches from one edge into each column (or row): S1 · (1/3 + 2/3 · noise), the noise having one
// random value every 2 · S1 pixels, which makes waves of about 4 · S1. Room for a vector more at the end.
inline std::vector<float> WaveringWidths(int count, int depth, int edge) {
    std::vector<float> widths(static_cast<std::size_t>(count + kLanes));
    const RandomRow random(0, 27, edge);
    const float most = static_cast<float>(depth), step = 1 / (2 * most);
    for (int i = 0; i < count; ++i)
        widths[static_cast<std::size_t>(i)] =
            most * (1 + 2 * engine::SmoothNoise(static_cast<float>(i) * step, random)) / 3;
    return widths;
}

// The part of the pixel that lies within one of the four bands, 0 to 1, is C1.
struct IrregularKernel {
    int width, height;
    std::vector<float> top, bottom, left, right;
    Color color;

    struct InRow {
        const IrregularKernel& all;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            const auto row = static_cast<std::size_t>(y);
            const Floats column = Columns(x);
            const Floats fromRight = hn::Sub(All(static_cast<float>(all.width - 1)), column);
            const Floats above =
                hn::Sub(hn::LoadU(kFloats, &all.top[static_cast<std::size_t>(x)]), All(static_cast<float>(y)));
            const Floats below = hn::Sub(hn::LoadU(kFloats, &all.bottom[static_cast<std::size_t>(x)]),
                                         All(static_cast<float>(all.height - 1 - y)));
            const Floats beside = hn::Max(hn::Sub(All(all.left[row]), column), hn::Sub(All(all.right[row]), fromRight));
            const Floats cover = Clamp01(hn::Max(hn::Max(above, below), beside));
            return Join(Mix(Split(pixels), AllOf(all.color), cover), pixels);
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void IrregularBordersOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                              const Run& run) {
    const int width = source.width, height = source.height;
    const IrregularKernel kernel{width,
                                 height,
                                 WaveringWidths(width, depth, 0),
                                 WaveringWidths(width, depth, 1),
                                 WaveringWidths(height, depth, 2),
                                 WaveringWidths(height, depth, 3),
                                 Sensible(color)};
    RenderFrame(kernel, depth, source, target, run);
}

// Fractal noise: five octaves, each of half the wavelength and half the weight of the one before, the first as long as
// the border is deep. Pixels whose noise lies under 1 - (distance + 1/2) / S1 are C1.
struct ErodeKernel {
    static constexpr int kOctaves = 5;
    // Octaves add up to values close to the middle; this spreads them over 0 to 1 again.
    static constexpr float kSpread = 1.6f;

    EdgeDistance distance;
    float depth;
    Color color;

    struct InRow {
        const ErodeKernel& all;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            Floats noise = hn::Zero(kFloats);
            float frequency = 1 / all.depth, weight = kSpread * 16 / 31;
            for (int octave = 0; octave < kOctaves; ++octave, frequency *= 2, weight /= 2) {
                const Floats value =
                    SmoothNoise(hn::Mul(Columns(x), All(frequency)), static_cast<float>(y) * frequency, 21, octave);
                noise = hn::Add(noise, hn::Mul(hn::Sub(value, All(0.5f)), All(weight)));
            }
            // Nothing is eaten beyond the depth, whatever the noise.
            noise = hn::Max(noise, All(-0.5f));
            const Floats inward = hn::Add(all.distance(x, y), All(0.5f));
            const Floats threshold = hn::Sub(All(0.5f), hn::Mul(inward, All(1 / all.depth)));
            // The outline is soft over about a pixel.
            const Floats steep = hn::Mul(hn::Sub(threshold, noise), All(all.depth / 2));
            return Join(Mix(Split(pixels), AllOf(all.color), Clamp01(steep)), pixels);
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void ErodeBorderOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                         const Run& run) {
    const ErodeKernel kernel{{source.width, source.height}, static_cast<float>(depth), Sensible(color)};
    RenderFrame(kernel, depth, source, target, run);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

// Deeper than any picture; the arithmetic of waves stays within whole numbers of floats.
constexpr int kDeepest = 10000;

KELU_DISPATCH_UP_TO(kDeepest, depth, FadeBorders, depth, color)
KELU_DISPATCH_UP_TO(kDeepest, depth, IrregularBorders, depth, color)
KELU_DISPATCH_UP_TO(kDeepest, depth, ErodeBorder, depth, color)

}  // namespace kelu::engine
#endif
