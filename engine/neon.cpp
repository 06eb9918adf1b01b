// Tubes along the edges in the pure hue of what lies round them, and the light that they throw. All of it is soft, so
// it is done at the working size and enlarged at the end.
// SPDX-License-Identifier: MIT
#include "engine/neon.h"

#include "engine/edge_map.h"
#include "engine/gaussian.h"
#include "engine/lengths.h"
#include "engine/working_size.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/neon.cpp"
#include <hwy/foreach_target.h>

#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// A pixel of the edge map becomes the hue of its surroundings, as bright as the edge stands out from the edges round
// it; that brightness in the alpha too.
struct TubeKernel {
    const std::uint32_t* around;  // blurred edge map, this row

    Pixels operator()(Pixels pixels, int x) const {
        const Pixels surroundings = hn::LoadU(kPixels, around + x);
        const Floats edge = ToFloats(hn::ShiftRight<24>(pixels)), mean = ToFloats(hn::ShiftRight<24>(surroundings));
        const Floats out = hn::Sub(hn::Sub(edge, hn::Mul(mean, All(0.85f))), All(9.0f));
        const Floats light = Smoothstep(hn::Mul(out, All(1.0f / 60)));
        // What is common to the channels goes; a little blue makes grey glow, too.
        const Channels c = Split(surroundings);
        const Floats common = hn::Mul(hn::Min(hn::Min(c.red, c.green), c.blue), All(0.95f));
        const Floats red = hn::Add(hn::Sub(c.red, common), All(6.0f));
        const Floats green = hn::Add(hn::Sub(c.green, common), All(10.0f));
        const Floats blue = hn::Add(hn::Sub(c.blue, common), All(18.0f));
        const Floats level = hn::Mul(light, All(255.0f));
        const Floats scale = hn::Div(level, hn::Max(hn::Max(red, green), blue));
        return JoinInRange({hn::Mul(blue, scale), hn::Mul(green, scale), hn::Mul(red, scale)},
                           hn::ShiftLeft<24>(ToByte(level)));
    }
};

// Tube, its white core, a narrow and a wide glow.
struct GlowKernel {
    const std::uint32_t *narrow, *wide;

    Pixels operator()(Pixels pixels, int x) const {
        const Channels tube = Split(pixels), close = Split(hn::LoadU(kPixels, narrow + x)),
                       far = Split(hn::LoadU(kPixels, wide + x));
        const Floats light = hn::Mul(ToFloats(hn::ShiftRight<24>(pixels)), All(1.0f / 255));
        const Floats core = hn::Mul(Smoothstep(hn::Sub(hn::Add(light, light), All(1.0f))), All(0.75f));
        const auto glowing = [&](Floats t, Floats n, Floats w) HWY_ATTR {
            const Floats own = hn::Mul(t, All(0.9f));
            const Floats lit = Mix(own, All(255.0f), core);
            return hn::Add(hn::Add(lit, hn::Mul(n, All(1.3f))), hn::Mul(w, All(0.78f)));
        };
        return Join({glowing(tube.blue, close.blue, far.blue), glowing(tube.green, close.green, far.green),
                     glowing(tube.red, close.red, far.red)},
                    pixels);
    }
};

struct AlphaKernel {
    const std::uint32_t* color;

    Pixels operator()(Pixels pixels, int x) const {
        return KeepAlpha(hn::AndNot(All(kAlphaMask), hn::LoadU(kPixels, color + x)), pixels);
    }
};

void TubesOnTarget(const WorkPicture& edges, const WorkPicture& around, const WorkPicture& tubes, Passes& passes) {
    const ImageView& size = edges.View();
    passes.Split(size.height, size.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) RoomyRow(TubeKernel{around.Row(y)}, edges.Row(y), tubes.Row(y), size.width);
    });
}

// In place.
void GlowOnTarget(const WorkPicture& tubes, const WorkPicture& narrow, const WorkPicture& wide, Passes& passes) {
    const ImageView& size = tubes.View();
    passes.Split(size.height, size.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y)
            RoomyRow(GlowKernel{narrow.Row(y), wide.Row(y)}, tubes.Row(y), tubes.Row(y), size.width);
    });
}

void EnlargeOnTarget(const WorkPicture& neon, int factor, const ImageView& source, const MutableImageView& target,
                     Passes& passes) {
    passes.Split(target.height, target.width, [&](int begin, int end) HWY_ATTR {
        EnlargedRows rows(neon, factor);
        for (int y = begin; y < end; ++y)
            PointSpan(AlphaKernel{rows.Row(y)}, source.Row(y), target.Row(y), 0, target.width);
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(TubesOnTarget);
HWY_EXPORT(GlowOnTarget);
HWY_EXPORT(EnlargeOnTarget);

void Neon(const ImageView& source, const MutableImageView& target, const Run& run) {
    const float scale = LengthScale(source, run);
    const int factor = WorkingFactor(scale);
    const float base = scale / static_cast<float>(factor);  // pixels of the working size
    // Standard deviations: of the surroundings that give the hue, and of the two glows.
    const double around = 8.0 * base, close = 3.0 * base, far = 16.0 * base;
    Passes passes(run, (factor > 1 ? 1 : 0) + MapEdgesPasses(base) + GaussianPasses(around) + 1 +
                           GaussianPasses(close) + GaussianPasses(far) + 2);
    const WorkPicture first = Smaller(source, factor), second = Smaller(source, factor),
                      third = Smaller(source, factor);
    if (factor > 1) Shrink(source, factor, third, passes);
    MapEdges(factor > 1 ? ImageView(third) : source, base, first, second, passes);
    GaussianBlur(second, first.View(), around, passes);
    HWY_DYNAMIC_DISPATCH(TubesOnTarget)(second, first, third, passes);
    GaussianBlur(third, first.View(), close, passes);
    GaussianBlur(third, second.View(), far, passes, 2);
    HWY_DYNAMIC_DISPATCH(GlowOnTarget)(third, first, second, passes);
    HWY_DYNAMIC_DISPATCH(EnlargeOnTarget)(third, factor, source, target, passes);
}

}  // namespace kelu::engine
#endif
