// The driver of class B: a fixed 3x3 neighbourhood in, one pixel out. A kernel is a small struct with
//     Pixels operator()(const Neighbourhood& around) const           or, where the column matters,
//     Pixels operator()(const Neighbourhood& around, int x) const
// Outside the picture lies the nearest edge pixel.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_NEIGHBOURHOOD_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_NEIGHBOURHOOD_INL
#undef KELU_ENGINE_NEIGHBOURHOOD_INL
#else
#define KELU_ENGINE_NEIGHBOURHOOD_INL
#endif

#include "engine/bands.h"
#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Least rows of a band: it reads one more above and below, which would be as many again on very wide pictures.
constexpr int kLeastNeighbourRows = 8;

/// kLanes neighbouring pixels and what lies around them.
class Neighbourhood {
 public:
    Neighbourhood(const std::uint32_t* above, const std::uint32_t* here, const std::uint32_t* below)
        : rows_{above, here, below} {}

    /// The pixels `dx` columns to the right and `dy` rows below, each -1, 0 or 1.
    HWY_INLINE Pixels At(int dx, int dy) const { return hn::LoadU(kPixels, rows_[dy + 1] + dx); }

 private:
    const std::uint32_t* rows_[3];
};

template <class Kernel>
HWY_INLINE Pixels CallKernel(const Kernel& kernel, const Neighbourhood& around, [[maybe_unused]] int x) {
    if constexpr (requires { kernel(around, x); }) {
        return kernel(around, x);
    } else {
        return kernel(around);
    }
}

/// The kLanes pixels from column `x`, where the picture's edge or its end is near.
template <class Kernel>
HWY_NOINLINE HWY_FLATTEN void NeighbourhoodAtEdge(const Kernel& kernel, const ImageView& source, std::uint32_t* target,
                                                  int x, int y) {
    std::uint32_t rows[3][kLanes + 2], result[kLanes];
    for (int row = 0; row < 3; ++row) CopyRowRepeatingEdge(source, y + row - 1, x - 1, x + kLanes + 1, rows[row]);
    hn::StoreU(CallKernel(kernel, Neighbourhood(rows[0] + 1, rows[1] + 1, rows[2] + 1), x), kPixels, result);
    std::copy_n(result, std::min(kLanes, source.width - x), target + x);
}

template <class Kernel>
HWY_NOINLINE HWY_FLATTEN void NeighbourhoodRow(const Kernel& given, const ImageView& source, std::uint32_t* target,
                                               int y) {
    const Kernel kernel = given;  // a copy that the stores below cannot be suspected to change
    const std::uint32_t* above = source.Row(RepeatEdge(y - 1, source.height));
    const std::uint32_t* here = source.Row(y);
    const std::uint32_t* below = source.Row(RepeatEdge(y + 1, source.height));
    NeighbourhoodAtEdge(kernel, source, target, 0, y);
    for (int x = kLanes; x + kLanes < source.width; x += kLanes)
        hn::StoreU(CallKernel(kernel, Neighbourhood(above + x, here + x, below + x), x), kPixels, target + x);
    if (source.width > kLanes) NeighbourhoodAtEdge(kernel, source, target, source.width - kLanes, y);
}

template <class Kernel>
void RenderNeighbourhoods(const Kernel& kernel, const ImageView& source, const MutableImageView& target,
                          const Run& run) {
    const auto work = [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) NeighbourhoodRow(kernel, source, target.Row(y), y);
    };
    SplitRows(run, source.height, source.width, work, kLeastNeighbourRows);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
