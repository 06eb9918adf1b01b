// Pencil on paper: lines where the picture is darker than its surroundings, strokes in two directions for its shades.
// Lines and shades are found at the working size; strokes and grain are a texture. Paper stays white where the picture
// is brighter than most of it, so that a dark photograph becomes no gray sheet.
// SPDX-License-Identifier: MIT
#include "engine/sketch.h"

#include <atomic>
#include <functional>
#include <numeric>

#include "engine/gaussian.h"
#include "engine/lengths.h"
#include "engine/textures.h"
#include "engine/working_size.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/sketch.cpp"
#include <hwy/foreach_target.h>

#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Red: the line, 255 (1 - (Y + 8) / (B + 8) - 0.035) / 0.55, Y the luma of the soft picture and B that of its
// surroundings. Green: the shade, 255 - Y.
struct LineKernel {
    const std::uint32_t* around;

    Pixels operator()(Pixels pixels, int x) const {
        const Floats y = Luma(pixels), b = Luma(hn::LoadU(kPixels, around + x));
        const Floats part = hn::Div(hn::Add(y, All(8.0f)), hn::Add(b, All(8.0f)));
        const Floats line = hn::Mul(hn::Sub(All(0.965f), part), All(255 / 0.55f));
        return Join({hn::Zero(kFloats), hn::Sub(All(255.0f), y), line}, pixels);
    }
};

struct DrawKernel {
    const std::uint32_t *lines, *paper;
    int offset;   // of the paper's columns
    float white;  // the luma from which on there is no shade

    HWY_INLINE Floats Sum(Floats a, float times, Floats b, float timesB, float plus) const {
        return hn::Add(hn::Add(hn::Mul(a, All(times)), hn::Mul(b, All(timesB))), All(plus));
    }

    Pixels operator()(Pixels pixels, int x) const {
        const Channels map = Split(hn::LoadU(kPixels, lines + x));
        const Channels texture = Split(hn::LoadU(kPixels, paper + x - offset));
        const Floats dark = hn::Add(hn::Mul(map.green, All(1 / white)), All(1 - 255 / white));
        const Floats shade = hn::Max(dark, hn::Zero(kFloats)), drawn = hn::Mul(map.red, All(1.0f / 255));
        // What the texture calls for, less 0.4: -0.4 to 1.2.
        const Floats called = Sum(texture.red, 1.6f / 255, shade, -1, -0.77f);
        const Floats first =
            hn::Mul(hn::Mul(Clamp01(hn::Neg(called)), Clamp01(Sum(shade, 2, shade, 0, -0.36f))), All(0.42f));
        const Floats other = Sum(shade, 1.3f, texture.green, -1.6f / 255, 0.035f);
        const Floats second = hn::Mul(hn::Mul(Clamp01(other), Clamp01(Sum(shade, 3, shade, 0, -1.5f))), All(0.34f));
        const Floats rough = hn::Min(hn::Mul(drawn, All(8.0f)), All(1.0f));
        const Floats grain = hn::Mul(Sum(texture.blue, 0.5f / 255, drawn, 0, -0.25f), rough);
        const Floats line = hn::Mul(Smoothstep(hn::Sub(hn::Mul(drawn, All(1.7f)), grain)), All(0.8f));
        const auto left = [](Floats ink) HWY_ATTR { return hn::Sub(All(1.0f), ink); };
        const Floats gray = hn::Mul(hn::Mul(hn::Mul(left(first), left(second)), left(line)), All(252.0f));
        return KeepAlpha(Gray(ToByte(gray)), pixels);
    }
};

// In place. The sum of all shades goes to `sum`.
void LinesOnTarget(const WorkPicture& soft, const WorkPicture& around, std::atomic<std::int64_t>& sum, Passes& passes) {
    const ImageView& size = soft.View();
    passes.Split(size.height, size.width, [&](int begin, int end) HWY_ATTR {
        std::int64_t shades = 0;
        for (int y = begin; y < end; ++y) {
            RoomyRow(LineKernel{around.Row(y)}, soft.Row(y), soft.Row(y), size.width);
            shades += std::transform_reduce(soft.Row(y), soft.Row(y) + size.width, std::uint32_t{0}, std::plus<>(),
                                            [](std::uint32_t pixel) { return pixel >> 8 & 0xff; });
        }
        sum += shades;
    });
}

void DrawOnTarget(const WorkPicture& lines, int factor, const WorkPicture& paper, int paperFactor, float white,
                  const ImageView& source, const MutableImageView& target, Passes& passes) {
    passes.Split(target.height, target.width, [&](int begin, int end) HWY_ATTR {
        EnlargedRows map(lines, factor), texture(paper, paperFactor, true);
        const int side = kTextureSide * paperFactor;
        for (int y = begin; y < end; ++y) {
            const std::uint32_t *const mapRow = map.Row(y), *const paperRow = texture.Row(y);
            for (int x = 0; x < target.width; x += side)
                PointSpan(DrawKernel{mapRow, paperRow, x, white}, source.Row(y), target.Row(y), x,
                          std::min(target.width, x + side));
        }
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(LinesOnTarget);
HWY_EXPORT(DrawOnTarget);

void Sketch(const ImageView& source, const MutableImageView& target, const Run& run) {
    const float scale = LengthScale(source, run);
    const int factor = CoarseFactor(scale), paperFactor = WorkingFactor(scale);
    const double base = scale / static_cast<float>(factor);  // pixels of the working size
    // Standard deviations: of the softening that a camera's grain and compression need, where making the picture
    // smaller and larger again is not it, and of the surroundings.
    const double softly = 0.8 * base, around = 8 * base;
    Passes passes(run, 3 + (factor > 1 ? 1 : GaussianPasses(softly)) + GaussianPasses(around));
    const WorkPicture paper = PencilTexture(passes);
    const WorkPicture soft = Smaller(source, factor), blurred = Smaller(source, factor);
    if (factor > 1)
        Shrink(source, factor, soft, passes);
    else
        GaussianBlur(source, soft.View(), softly, passes);
    GaussianBlur(soft, blurred.View(), around, passes);
    std::atomic<std::int64_t> shades = 0;
    HWY_DYNAMIC_DISPATCH(LinesOnTarget)(soft, blurred, shades, passes);
    const double pixels = static_cast<double>(soft.View().width) * soft.View().height;
    const double white = std::clamp(1.6 * (255 - static_cast<double>(shades) / pixels), 90.0, 255.0);
    HWY_DYNAMIC_DISPATCH(DrawOnTarget)
    (soft, factor, paper, paperFactor, static_cast<float>(white), source, target, passes);
}

}  // namespace kelu::engine
#endif
