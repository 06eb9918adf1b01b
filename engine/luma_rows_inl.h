// The driver of the 3x3 effects that look at luma: it computes the luma of each row once and keeps the last three, or
// as many as it takes where the neighbours stand farther away. A kernel is a small struct with
//     Pixels operator()(const LumaNeighbourhood& luma, Pixels pixels) const                   for RenderFromLuma
//     Pixels operator()(const LumaNeighbourhood& luma, const Neighbourhood& around) const     for RenderBesideLuma
// Outside the picture lies the nearest edge pixel.
// SPDX-License-Identifier: MIT
#if defined(KELU_ENGINE_LUMA_ROWS_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef KELU_ENGINE_LUMA_ROWS_INL
#undef KELU_ENGINE_LUMA_ROWS_INL
#else
#define KELU_ENGINE_LUMA_ROWS_INL
#endif

#include <array>
#include <vector>

#include "engine/neighbourhood_inl.h"
#include "engine/point_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

/// The luma of 4 kLanes pixels as bytes in their order. The four vectors come to lie in each other's gaps, one pixel's
/// byte beside that of the pixel kLanes on, and are then sorted, first within blocks of 16 bytes and then the blocks'
/// parts.
HWY_INLINE Bytes LumaBytes(const std::uint32_t* pixels) {
    HWY_ALIGN static constexpr std::uint8_t kInBlock[] = {0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15};
    constexpr int kBlocks = kLanes / 4;
    HWY_ALIGN static constexpr auto kParts = [] {
        std::array<std::int32_t, kLanes> parts{};
        for (int i = 0; i < kLanes; ++i) parts[i] = i % kBlocks * 4 + i / kBlocks;
        return parts;
    }();
    const auto luma = [=](int vector) HWY_ATTR {
        return hn::BitCast(kPixels, LumaInts(hn::LoadU(kPixels, pixels + vector * kLanes)));
    };
    const Pixels even = hn::Or(luma(0), hn::ShiftLeft<16>(luma(2))), odd = hn::Or(luma(1), hn::ShiftLeft<16>(luma(3)));
    const Bytes mixed = hn::BitCast(kBytes, hn::Or(even, hn::ShiftLeft<8>(odd)));
    const Bytes inBlocks = hn::TableLookupBytes(mixed, hn::LoadDup128(kBytes, kInBlock));
    return hn::BitCast(kBytes,
                       hn::TableLookupLanes(hn::BitCast(kInts, inBlocks), hn::SetTableIndices(kInts, kParts.data())));
}

/// The luma of `count` pixels, and after them whatever the last vector gives: `out` has room for kLanes bytes more.
inline HWY_NOINLINE void LumaOfRow(const std::uint32_t* pixels, std::uint8_t* out, int count) {
    const hn::Rebind<std::uint8_t, PixelTag> bytes;
    int x = 0;
    for (; x + 4 * kLanes <= count; x += 4 * kLanes) hn::StoreU(LumaBytes(pixels + x), kBytes, out + x);
    for (; x + kLanes <= count; x += kLanes)
        hn::StoreU(hn::DemoteTo(bytes, LumaInts(hn::LoadU(kPixels, pixels + x))), bytes, out + x);
    if (x == count) return;
    std::uint32_t few[kLanes] = {};
    std::copy(pixels + x, pixels + count, few);
    hn::StoreU(hn::DemoteTo(bytes, LumaInts(hn::LoadU(kPixels, few))), bytes, out + x);
}

/// The luma of kLanes neighbouring pixels and of what lies around them.
class LumaNeighbourhood {
 public:
    LumaNeighbourhood(const std::uint8_t* const rows[3], int x, int step)
        : rows_{rows[0] + x, rows[1] + x, rows[2] + x}, step_(step) {}

    /// 0 to 255; `dx` steps to the right and `dy` steps below, each -1, 0 or 1.
    HWY_INLINE Ints At(int dx, int dy) const {
        const hn::Rebind<std::uint8_t, PixelTag> bytes;
        return hn::PromoteTo(kInts, hn::LoadU(bytes, rows_[dy + 1] + dx * step_));
    }

 private:
    const std::uint8_t* rows_[3];
    const std::ptrdiff_t step_;
};

/// Luma of the rows y - step, y and y + step, with `step` columns more on either side, for a `y` that counts up.
class LumaRows {
 public:
    explicit LumaRows(const ImageView& source, int step = 1)
        : source_(source),
          step_(step),
          slots_(2 * step + 1),
          stride_(source.width + 2 * step + 2 * kLanes),
          memory_(static_cast<std::size_t>(slots_ * stride_)) {}

    void MoveTo(int y) {
        for (int row = std::max(y - step_, last_ + 1); row <= y + step_; ++row) Fill(row);
        last_ = y + step_;
        for (int i = 0; i < 3; ++i) rows_[i] = Slot(y + (i - 1) * step_) + step_;
    }

    const std::uint8_t* const* Rows() const { return rows_; }
    /// Any row from y - step to y + step, also between those.
    const std::uint8_t* Row(int row) { return Slot(row) + step_; }

 private:
    std::uint8_t* Slot(int row) { return memory_.data() + (row + slots_) % slots_ * stride_; }

    void Fill(int row) {
        std::uint8_t* const slot = Slot(row);
        std::uint8_t* const end = slot + step_ + source_.width;
        LumaOfRow(source_.Row(RepeatEdge(row, source_.height)), slot + step_, source_.width);
        std::fill(slot, slot + step_, slot[step_]);
        std::fill(end, end + step_, end[-1]);
    }

    const ImageView& source_;
    const int step_, slots_;
    const std::ptrdiff_t stride_;
    std::vector<std::uint8_t> memory_;
    const std::uint8_t* rows_[3] = {};
    int last_ = -1000;  // the lowest row filled
};

/// A kernel over luma as the kernel of one row of the other drivers.
template <class Kernel>
struct LumaRowKernel {
    const Kernel& kernel;
    const std::uint8_t* const* rows;
    int step = 1;

    template <class Colors>
    HWY_INLINE Pixels operator()(const Colors& colors, int x) const {
        return kernel(LumaNeighbourhood(rows, x, step), colors);
    }
};

/// Least rows of a band whose kernel looks `reach` rows up and down: their luma is computed for each band anew.
constexpr int LeastLumaRows(int reach) { return std::max(kLeastNeighbourRows, 10 * reach); }

/// For kernels that need the colour of the pixel itself at most.
template <class Kernel>
void RenderFromLuma(const Kernel& kernel, const ImageView& source, const MutableImageView& target, int step,
                    const Run& run) {
    const auto work = [&](int begin, int end) HWY_ATTR {
        LumaRows luma(source, step);
        for (int y = begin; y < end; ++y) {
            luma.MoveTo(y);
            PointSpan(LumaRowKernel<Kernel>{kernel, luma.Rows(), step}, source.Row(y), target.Row(y), 0, source.width);
        }
    };
    SplitRows(run, source.height, source.width, work, LeastLumaRows(step));
}

/// For kernels that need the colours of the neighbours too.
template <class Kernel>
void RenderBesideLuma(const Kernel& kernel, const ImageView& source, const MutableImageView& target, const Run& run) {
    const auto work = [&](int begin, int end) HWY_ATTR {
        LumaRows luma(source);
        for (int y = begin; y < end; ++y) {
            luma.MoveTo(y);
            NeighbourhoodRow(LumaRowKernel<Kernel>{kernel, luma.Rows()}, source, target.Row(y), y);
        }
    };
    SplitRows(run, source.height, source.width, work, kLeastNeighbourRows);
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
