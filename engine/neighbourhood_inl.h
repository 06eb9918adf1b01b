// The driver of class B: a fixed 3x3 neighbourhood in, one pixel out. A kernel is a small struct with
//     Pixels operator()(const Neighbourhood& around) const           or, where the column matters,
//     Pixels operator()(const Neighbourhood& around, int x) const
// Outside the picture lies the nearest edge pixel. The neighbours may stand `step` pixels away, 1 to 16.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_NEIGHBOURHOOD_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_NEIGHBOURHOOD_INL
#undef KELU_ENGINE_NEIGHBOURHOOD_INL
#else
#define KELU_ENGINE_NEIGHBOURHOOD_INL
#endif

#include "engine/bands.h"
#include "engine/lanes_inl.h"
#include "engine/lengths.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Least rows of a band: it reads one more above and below, which would be as many again on very wide pictures.
constexpr int kLeastNeighbourRows = 8;

/// kLanes neighbouring pixels and what lies around them.
class Neighbourhood {
 public:
    Neighbourhood(const std::uint32_t* above, const std::uint32_t* here, const std::uint32_t* below, int step)
        : rows_{above, here, below}, step_(step) {}

    /// The pixels `dx` steps to the right and `dy` steps below, each -1, 0 or 1.
    HWY_INLINE Pixels At(int dx, int dy) const { return hn::LoadU(kPixels, rows_[dy + 1] + dx * step_); }

 private:
    const std::uint32_t* rows_[3];
    const std::ptrdiff_t step_;
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
                                                  int x, int y, int step) {
    std::uint32_t rows[3][kLanes + 2 * kMostStep], result[kLanes];
    for (int row = 0; row < 3; ++row)
        CopyRowRepeatingEdge(source, y + (row - 1) * step, x - step, x + kLanes + step, rows[row]);
    const Neighbourhood around(rows[0] + step, rows[1] + step, rows[2] + step, step);
    hn::StoreU(CallKernel(kernel, around, x), kPixels, result);
    std::copy_n(result, std::min(kLanes, source.width - x), target + x);
}

template <class Kernel>
HWY_NOINLINE HWY_FLATTEN void NeighbourhoodRow(const Kernel& given, const ImageView& source, std::uint32_t* target,
                                               int y, int step = 1) {
    const Kernel kernel = given;  // a copy that the stores below cannot be suspected to change
    const std::uint32_t* above = source.Row(RepeatEdge(y - step, source.height));
    const std::uint32_t* here = source.Row(y);
    const std::uint32_t* below = source.Row(RepeatEdge(y + step, source.height));
    int x = 0;
    for (; x < std::min(step, source.width); x += kLanes) NeighbourhoodAtEdge(kernel, source, target, x, y, step);
    for (; x + kLanes + step <= source.width; x += kLanes)
        hn::StoreU(CallKernel(kernel, Neighbourhood(above + x, here + x, below + x, step), x), kPixels, target + x);
    for (; x < source.width; x += kLanes) NeighbourhoodAtEdge(kernel, source, target, x, y, step);
}

/// One pass. `after`, if any, goes over the rows of a band while they are still in the cache.
template <class Kernel>
void RenderNeighbourhoods(const Kernel& kernel, const ImageView& source, const MutableImageView& target, int step,
                          Passes& passes, const BandWork& after = {}) {
    const auto work = [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) NeighbourhoodRow(kernel, source, target.Row(y), y, step);
        if (after) after(begin, end);
    };
    passes.Split(source.height, source.width, work, kLeastNeighbourRows);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
