// Borders, class A with a noise field.
// SPDX-License-Identifier: MIT
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/borders.cpp"
#include <hwy/foreach_target.h>

#include <bit>
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

    Floats Across(int x) const {
        const Floats left = Columns(x);
        return hn::Min(left, hn::Sub(All(static_cast<float>(width - 1)), left));
    }
    float Down(int y) const { return static_cast<float>(std::min(y, height - 1 - y)); }
    Floats operator()(int x, int y) const { return hn::Min(Across(x), All(Down(y))); }
};

// `color` over so large a part of each pixel, 0 to 1; the picture gives way in its alpha, too.
HWY_INLINE Pixels Covered(Pixels pixels, const Channels& own, const Color& color, Floats part) {
    const Pixels alpha = hn::ShiftRight<24>(pixels);
    if (HWY_LIKELY(hn::AllTrue(kPixels, hn::Eq(alpha, All(255u)))))
        return JoinInRange(Mix(own, AllOf(color), part), pixels);
    const Floats left = hn::Mul(hn::Mul(ToFloats(alpha), All(1.0f / 255)), hn::Sub(All(1.0f), part));
    const Floats whole = hn::Add(part, left);
    const Floats share = hn::Div(part, hn::Max(whole, All(1e-6f)));
    return JoinInRange(Mix(own, AllOf(color), share), hn::ShiftLeft<24>(ToByte(hn::Mul(whole, All(255.0f)))));
}

// C1 covers all but smoothstep(1 - d), d how far, in parts of S1, a pixel lies beyond an inner rectangle S1 away from
// the edges: round corners.
struct FadeKernel {
    EdgeDistance distance;
    float step;  // one over S1
    Color color;

    struct InRow {
        const FadeKernel& all;
        float square;  // of the distance downward

        Pixels operator()(Pixels pixels, int x) const {
            const Floats across = hn::Sub(All(1.0f), Clamp01(hn::Mul(all.distance.Across(x), All(all.step))));
            const Floats beyond = hn::Sqrt(hn::Add(hn::Mul(across, across), All(square)));
            const Floats clear = Smoothstep(hn::Sub(All(1.0f), beyond));
            return Covered(pixels, Split(pixels), all.color, hn::Sub(All(1.0f), clear));
        }
    };
    InRow Row(int y) const {
        const float down = 1 - std::min(1.0f, distance.Down(y) * step);
        return {*this, down * down};
    }
};

void FadeBordersOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                         const Run& run) {
    const int margin = std::max(depth, 0);
    const FadeKernel kernel{
        {source.width, source.height}, 1 / static_cast<float>(std::max(margin, 1)), Sensible(color)};
    RenderFrame(kernel, margin, source, target, run);
}

// How far the colour reaches from one edge into each column (or row), and how far the torn paper below it, which lies
// bare there: octaves of noise, the first with a value every 2 · S1 pixels and a fifth of S1 high to either side of S1
// / 2, each next of half the length and 0.6 times the height, but not below 3/4 pixel, down to a value every 2 pixels.
struct TornEdge {
    std::vector<float> color, paper;  // room for a vector more at the end

    TornEdge(int count, int depth, int edge) {
        const float most = static_cast<float>(depth), bare = std::min(1 + most / 20, most / 3);
        for (int i = 0; i < count + kLanes; ++i) {
            const float at = static_cast<float>(i);
            float width = most / 2, height = most / 5, step = 1 / (2 * most);
            for (int octave = 0; octave < 12 && (octave == 0 || step <= 0.5f); ++octave, step *= 2, height *= 0.6f)
                width +=
                    std::max(height, 0.75f) * (2 * engine::SmoothNoise(at * step, RandomRow(octave, 27, edge)) - 1);
            color.push_back(std::clamp(width, most / 12, most));
            paper.push_back(color.back() + bare * engine::SmoothNoise(at / 3, RandomRow(0, 27, 4 + edge)));
        }
    }
};

struct IrregularKernel {
    int width, height;
    TornEdge top, bottom, left, right;
    Color color;
    Color bare;    // of the paper's torn edge
    float shadow;  // one over the width of the shadow that it throws

    struct InRow {
        const IrregularKernel& all;
        int y;

        // How far the nearest of the four bands reaches beyond each pixel.
        HWY_INLINE Floats Reach(const std::vector<float> TornEdge::*band, int x) const {
            const auto row = static_cast<std::size_t>(y), at = static_cast<std::size_t>(x);
            const Floats column = Columns(x);
            const Floats fromRight = hn::Sub(All(static_cast<float>(all.width - 1)), column);
            const Floats above = hn::Sub(hn::LoadU(kFloats, &(all.top.*band)[at]), All(static_cast<float>(y)));
            const Floats below =
                hn::Sub(hn::LoadU(kFloats, &(all.bottom.*band)[at]), All(static_cast<float>(all.height - 1 - y)));
            const Floats beside =
                hn::Max(hn::Sub(All((all.left.*band)[row]), column), hn::Sub(All((all.right.*band)[row]), fromRight));
            return hn::Max(hn::Max(above, below), beside);
        }

        Pixels operator()(Pixels pixels, int x) const {
            const Floats paper = Reach(&TornEdge::paper, x), cover = Clamp01(Reach(&TornEdge::color, x));
            const Floats dark = Clamp01(hn::Add(hn::Mul(paper, All(all.shadow)), All(1.0f)));
            const Floats light = hn::Sub(All(1.0f), hn::Mul(hn::Mul(dark, dark), All(0.4f)));
            const Channels own = Split(pixels);
            const Channels shaded{hn::Mul(own.blue, light), hn::Mul(own.green, light), hn::Mul(own.red, light)};
            const Pixels torn = Covered(pixels, shaded, all.bare, Clamp01(paper));
            return Covered(torn, Split(torn), all.color, cover);
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void IrregularBordersOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                              const Run& run) {
    const int width = source.width, height = source.height;
    const Color own = Sensible(color);
    const auto pale = [](int level) { return level + (255 - level) * 3 / 4; };
    const int shadow = 2 + depth / 20;
    const IrregularKernel kernel{width,
                                 height,
                                 TornEdge(width, depth, 0),
                                 TornEdge(width, depth, 1),
                                 TornEdge(height, depth, 2),
                                 TornEdge(height, depth, 3),
                                 own,
                                 {pale(own.red), pale(own.green), pale(own.blue)},
                                 1 / static_cast<float>(shadow)};
    RenderFrame(kernel, depth + 2 * shadow, source, target, run);
}

// Fractal noise: octaves down to two pixels, each of half the wavelength and 0.6 of the weight of the one before, the
// first as long as the border is deep. Pixels whose noise lies under 1 - (distance + 1/2) / S1 are C1; beside them the
// picture lies in a narrow shadow.
struct ErodeKernel {
    // Octaves add up to values close to the middle; this spreads them over 0 to 1 again.
    static constexpr float kSpread = 1.6f, kPersistence = 0.6f;

    EdgeDistance distance;
    float depth;
    int octaves;
    Color color;

    struct InRow {
        const ErodeKernel& all;
        int y;

        Pixels operator()(Pixels pixels, int x) const {
            Floats noise = hn::Zero(kFloats);
            float frequency = 1 / all.depth, weight = kSpread * (1 - kPersistence);
            for (int octave = 0; octave < all.octaves; ++octave, frequency *= 2, weight *= kPersistence) {
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
            const Floats light =
                hn::Sub(All(1.0f), hn::Mul(Clamp01(hn::Add(hn::Mul(steep, All(0.4f)), All(1.0f))), All(0.45f)));
            const Channels own = Split(pixels);
            const Channels shaded{hn::Mul(own.blue, light), hn::Mul(own.green, light), hn::Mul(own.red, light)};
            return Covered(pixels, shaded, all.color, Clamp01(steep));
        }
    };
    InRow Row(int y) const { return {*this, y}; }
};

void ErodeBorderOnTarget(const ImageView& source, const MutableImageView& target, int depth, Color color,
                         const Run& run) {
    const int octaves = std::max(1, static_cast<int>(std::bit_width(static_cast<unsigned>(depth))) - 1);
    const ErodeKernel kernel{{source.width, source.height}, static_cast<float>(depth), octaves, Sensible(color)};
    RenderFrame(kernel, depth + 6, source, target, run);
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
