// Colour dodge of the picture's luma with its inverted blur: 255 (Y + k) / (B + k), at most 255, B the luma of the
// Gaussian blur. The small k keeps the grain of black areas from being drawn and makes them white, too.
// SPDX-License-Identifier: MIT
#include "engine/sketch.h"

#include "engine/gaussian.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/sketch.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

HWY_INLINE Pixels Drawn(Pixels pixels, Pixels blurred) {
    constexpr float kEven = 4;
    const Floats y = hn::Add(Luma(Split(pixels)), All(kEven)), around = hn::Add(Luma(Split(blurred)), All(kEven));
    return KeepAlpha(Gray(ToByte(hn::Div(hn::Mul(y, All(255.0f)), around))), pixels);
}

// `target` holds the blurred picture.
void DrawOnTarget(const ImageView& source, const MutableImageView& target, Passes& passes) {
    passes.Split(source.height, source.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) {
            const std::uint32_t* const row = source.Row(y);
            std::uint32_t* const out = target.Row(y);
            int x = 0;
            for (; x + kLanes <= source.width; x += kLanes)
                hn::StoreU(Drawn(hn::LoadU(kPixels, row + x), hn::LoadU(kPixels, out + x)), kPixels, out + x);
            for (; x < source.width; ++x)
                out[x] = hn::GetLane(Drawn(hn::Set(kPixels, row[x]), hn::Set(kPixels, out[x])));
        }
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(DrawOnTarget);

// Standard deviation of the blur, image pixels: about the width of the pencil's shading beside an edge.
constexpr double kPencilSigma = 8;

void Sketch(const ImageView& source, const MutableImageView& target, const Run& run) {
    Passes passes(run, 1 + GaussianPasses(kPencilSigma));
    GaussianBlur(source, target, kPencilSigma, passes);
    HWY_DYNAMIC_DISPATCH(DrawOnTarget)(source, target, passes);
}

}  // namespace kelu::engine
#endif
