// The 3x3 kernel's bite, cold colours, and ice that is thickest along the edges. Where the ice lies is found at the
// working size; its crystals are a texture.
// SPDX-License-Identifier: MIT
#include "engine/convolution.h"
#include "engine/edge_map.h"
#include "engine/gaussian.h"
#include "engine/lengths.h"
#include "engine/textures.h"
#include "engine/working_size.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/freeze.cpp"
#include <hwy/foreach_target.h>

#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

struct FrostKernel {
    const std::uint32_t *edges, *ice;
    int offset;  // of the ice's columns

    Pixels operator()(Pixels pixels, int x) const {
        const Floats near = ToFloats(hn::ShiftRight<24>(hn::LoadU(kPixels, edges + x)));
        const Floats frost = hn::Add(Smoothstep(hn::Mul(near, All(1.0f / 70))), All(0.12f));
        const Channels texture = Split(hn::LoadU(kPixels, ice + x - offset));
        const Channels c = Split(pixels);
        // Luma from a night blue over an ice blue to a cold white, two thirds of the colour.
        const Floats y = hn::Mul(Luma(c), All(2.0f / 255)), low = hn::Min(y, All(1.0f)),
                     high = hn::Max(hn::Sub(y, All(1.0f)), hn::Zero(kFloats));
        const Floats faces = hn::Mul(hn::Mul(hn::Sub(texture.green, All(128.0f)), All(60.0f / 127)),
                                     hn::Min(hn::Add(frost, All(0.15f)), All(1.0f)));
        const Floats thick = hn::Add(
            hn::Add(hn::Mul(texture.red, All(0.7f / 255)), hn::Mul(texture.blue, All(0.25f / 255))), All(0.15f));
        const Floats white = hn::Min(hn::Mul(frost, thick), All(1.0f));
        const Floats bare = hn::Sub(All(1.0f), white);
        const auto frozen = [&](Floats own, float dark, float middle, float light, float snow) HWY_ATTR {
            constexpr float kCold = 0.65f;
            const Floats shade = hn::Add(hn::Mul(own, All(1 - kCold)), hn::Add(faces, All(kCold * dark)));
            const Floats cold =
                hn::Add(hn::Mul(low, All(kCold * (middle - dark))), hn::Mul(high, All(kCold * (light - middle))));
            return hn::Add(hn::Mul(hn::Add(shade, cold), bare), hn::Mul(white, All(snow)));
        };
        return Join(
            {frozen(c.blue, 62, 205, 255, 255), frozen(c.green, 24, 150, 251, 247), frozen(c.red, 8, 92, 244, 236)},
            pixels);
    }
};

// The rows [begin, end) in place: nothing is read twice. `mapFactor` and `iceFactor` enlarge the two.
void FrostOnTarget(const WorkPicture& edges, int mapFactor, const WorkPicture& ice, int iceFactor,
                   const MutableImageView& target, int begin, int end) {
    EnlargedRows map(edges, mapFactor), texture(ice, iceFactor, true);
    const int side = kTextureSide * iceFactor;
    for (int y = begin; y < end; ++y) {
        const std::uint32_t *const mapRow = map.Row(y), *const iceRow = texture.Row(y);
        for (int x = 0; x < target.width; x += side) {
            const FrostKernel kernel{mapRow, iceRow, x};
            std::uint32_t* const row = target.Row(y);
            const int last = std::min(target.width, x + side), whole = x + (last - x) / kLanes * kLanes;
            PointSpan(kernel, row, row, x, whole);
            PointSpan(kernel, row, row, whole, last);
        }
    }
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {

HWY_EXPORT(FrostOnTarget);

void Freeze(const ImageView& source, const MutableImageView& target, const Weights3x3& weights, float divisor,
            int offset, const Run& run) {
    const float scale = LengthScale(source, run);
    const int factor = CoarseFactor(scale), iceFactor = WorkingFactor(scale);
    const float base = scale / static_cast<float>(factor);  // pixels of the working size
    const double around = 6.0 * base;                       // standard deviation of the ice beside an edge
    Passes passes(run, (factor > 1 ? 1 : 0) + MapEdgesPasses(base) + GaussianPasses(around) + 2);
    const WorkPicture ice = IceTexture(passes);
    const WorkPicture first = Smaller(source, factor), second = Smaller(source, factor);
    const WorkPicture third = factor > 1 ? Smaller(source, factor) : WorkPicture(1, 1);
    if (factor > 1) Shrink(source, factor, third, passes);
    MapEdges(factor > 1 ? ImageView(third) : source, base, first, second, passes);
    GaussianBlur(second, first.View(), around, passes);
    // Half the picture and half the bite: all of it would freeze the blocks of compression, too.
    Weights3x3 half = weights;
    const float by = divisor == 0 ? 1 : divisor;
    half[4] += by;
    Convolve(source, target, half, 2 * by, offset / 2, NeighbourStep(source, run), passes, [&](int begin, int end) {
        HWY_DYNAMIC_DISPATCH(FrostOnTarget)(first, factor, ice, iceFactor, target, begin, end);
    });
}

}  // namespace kelu::engine
#endif
