// The driver of class A: one pixel in, one pixel out. A kernel is a small struct with one of
//     Pixels operator()(Pixels pixels) const            the colour alone decides
//     Pixels operator()(Pixels pixels, int x) const     x is the column of the first lane
// and, where the row matters, `Row(int y) const`, which returns the kernel of one row.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_POINT_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_POINT_INL
#undef KELU_ENGINE_POINT_INL
#else
#define KELU_ENGINE_POINT_INL
#endif

#include "engine/bands.h"
#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

template <class Kernel>
HWY_INLINE Pixels CallKernel(const Kernel& kernel, Pixels pixels, [[maybe_unused]] int x) {
    if constexpr (requires { kernel(pixels, x); }) {
        return kernel(pixels, x);
    } else {
        return kernel(pixels);
    }
}

/// The pixels [begin, end) of a row. The last vector overlaps the one before it rather than being cut.
template <class Kernel>
HWY_NOINLINE HWY_FLATTEN void PointSpan(const Kernel& given, const std::uint32_t* source, std::uint32_t* target,
                                        int begin, int end) {
    const Kernel kernel = given;  // a copy that the stores below cannot be suspected to change
    int x = begin;
    for (; x + kLanes <= end; x += kLanes)
        hn::StoreU(CallKernel(kernel, hn::LoadU(kPixels, source + x), x), kPixels, target + x);
    if (x == end) return;
    if (end - begin >= kLanes) {
        x = end - kLanes;
        hn::StoreU(CallKernel(kernel, hn::LoadU(kPixels, source + x), x), kPixels, target + x);
        return;
    }
    HWY_ALIGN std::uint32_t few[kLanes] = {};
    std::copy(source + x, source + end, few);
    hn::Store(CallKernel(kernel, hn::Load(kPixels, few), x), kPixels, few);
    std::copy(few, few + (end - x), target + x);
}

/// The pixels of a row that has room behind it, each read once, so that `target` may be `source`.
template <class Kernel>
HWY_NOINLINE HWY_FLATTEN void RoomyRow(const Kernel& given, const std::uint32_t* source, std::uint32_t* target,
                                       int count) {
    const Kernel kernel = given;
    for (int x = 0; x < count; x += kLanes)
        hn::StoreU(CallKernel(kernel, hn::LoadU(kPixels, source + x), x), kPixels, target + x);
}

/// The kernel for row `y`.
template <class Kernel>
HWY_INLINE auto RowKernel(const Kernel& kernel, [[maybe_unused]] int y) {
    if constexpr (requires { kernel.Row(y); }) {
        return kernel.Row(y);
    } else {
        return kernel;
    }
}

/// Renders the whole picture.
template <class Kernel>
void RenderPoints(const Kernel& kernel, const ImageView& source, const MutableImageView& target, const Run& run) {
    SplitRows(run, source.height, source.width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y)
            PointSpan(RowKernel(kernel, y), source.Row(y), target.Row(y), 0, source.width);
    });
}

/// Renders the frame of `margin` pixels along the edges and copies what it encloses.
template <class Kernel>
void RenderFrame(const Kernel& kernel, int margin, const ImageView& source, const MutableImageView& target,
                 const Run& run) {
    const int width = source.width, height = source.height;
    const int left = std::min(margin, width), right = std::max(left, width - margin);
    SplitRows(run, height, width, [&](int begin, int end) HWY_ATTR {
        for (int y = begin; y < end; ++y) {
            const auto row = RowKernel(kernel, y);
            if (y < margin || y >= height - margin) {
                PointSpan(row, source.Row(y), target.Row(y), 0, width);
                continue;
            }
            PointSpan(row, source.Row(y), target.Row(y), 0, left);
            std::copy(source.Row(y) + left, source.Row(y) + right, target.Row(y) + left);
            PointSpan(row, source.Row(y), target.Row(y), right, width);
        }
    });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
