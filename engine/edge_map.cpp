// Sobel's gradient of the three channels of a soft picture.
// SPDX-License-Identifier: MIT
#include "engine/edge_map.h"

#include "engine/gaussian.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/edge_map.cpp"
#include <hwy/foreach_target.h>

#include "engine/neighbourhood_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

struct EdgeKernel {
    float gain;  // of the root of the sum of squares

    Pixels operator()(const Neighbourhood& around) const {
        // The sum of the squares of both gradients of the channels in `mask`, blue and red or green alone, in 16 bits.
        const auto squares = [&](auto&& at) HWY_ATTR {
            const Shorts rising = hn::Sub(at(1, 1), at(-1, -1)), falling = hn::Sub(at(1, -1), at(-1, 1));
            const Shorts across = hn::Sub(at(1, 0), at(-1, 0)), down = hn::Sub(at(0, 1), at(0, -1));
            const Shorts gx = hn::Add(hn::Add(rising, falling), hn::Add(across, across));
            const Shorts gy = hn::Add(hn::Sub(rising, falling), hn::Add(down, down));
            return hn::Add(PairProducts(gx, gx), PairProducts(gy, gy));
        };
        const Ints blueRed = squares([&](int dx, int dy) HWY_ATTR {
            return hn::BitCast(kShorts, hn::And(around.At(dx, dy), All(0x00ff00ffu)));
        });
        const Ints green = squares([&](int dx, int dy) HWY_ATTR {
            return hn::BitCast(kShorts, hn::And(hn::ShiftRight<8>(around.At(dx, dy)), All(0xffu)));
        });
        const Floats length = hn::Sqrt(hn::ConvertTo(kFloats, hn::Add(blueRed, green)));
        const Pixels edge = hn::ShiftLeft<24>(ToByte(hn::Mul(length, All(gain))));
        return hn::Or(hn::AndNot(All(kAlphaMask), around.At(0, 0)), edge);
    }
};

void EdgesOnTarget(const ImageView& soft, const MutableImageView& edges, float basePixel, Passes& passes) {
    // Sobel's sums are eight times the slope.
    const EdgeKernel kernel{9 * basePixel / (8 * std::sqrt(3.0f))};
    passes.Split(
        soft.height, soft.width,
        [&](int begin, int end) HWY_ATTR {
            for (int y = begin; y < end; ++y) NeighbourhoodRow(kernel, soft, edges.Row(y), y);
        },
        kLeastNeighbourRows);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(EdgesOnTarget);

double Softening(float basePixel) { return std::max(0.3, 1.6 * static_cast<double>(basePixel)); }

}  // namespace

int MapEdgesPasses(float basePixel) { return GaussianPasses(Softening(basePixel)) + 1; }

void MapEdges(const ImageView& source, float basePixel, const WorkPicture& soft, const WorkPicture& edges,
              Passes& passes) {
    GaussianBlur(source, soft.View(), Softening(basePixel), passes);
    HWY_DYNAMIC_DISPATCH(EdgesOnTarget)(soft, edges.View(), basePixel, passes);
}

}  // namespace kelu::engine
#endif
