// Blocks of their mean: the columns of a block row are summed first, in vectors.
// SPDX-License-Identifier: MIT
#include "engine/mosaic.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "engine/copy.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/mosaic.cpp"
#include <hwy/foreach_target.h>

#include "engine/bands.h"
#include "engine/lanes_inl.h"

HWY_BEFORE_NAMESPACE();
namespace kelu::engine::HWY_NAMESPACE {

// Adds to each pixel's two sums, blue and red in the low and high half of one, green and alpha in the other, what
// stands in its column of the rows [top, bottom), 257 at most.
void SumColumnsOnTarget(const ImageView& source, int top, int bottom, std::uint32_t* blueRed,
                        std::uint32_t* greenAlpha) {
    const auto sum = [&](int x, auto load) HWY_ATTR {
        ShortChannels sums{hn::Zero(kShorts), hn::Zero(kShorts)};
        for (int y = top; y < bottom; ++y) {
            const ShortChannels c = SplitShorts(load(source.Row(y) + x));
            sums = {hn::Add(sums.blueRed, c.blueRed), hn::Add(sums.greenAlpha, c.greenAlpha)};
        }
        hn::StoreU(hn::BitCast(kPixels, sums.blueRed), kPixels, blueRed + x);
        hn::StoreU(hn::BitCast(kPixels, sums.greenAlpha), kPixels, greenAlpha + x);
    };
    int x = 0;
    for (; x + kLanes <= source.width; x += kLanes)
        sum(x, [](const std::uint32_t* pixels) HWY_ATTR { return hn::LoadU(kPixels, pixels); });
    if (x < source.width)
        sum(x, [few = source.width - x](const std::uint32_t* pixels) HWY_ATTR {
            std::uint32_t lanes[kLanes] = {};
            std::copy_n(pixels, few, lanes);
            return hn::LoadU(kPixels, lanes);
        });
}

}  // namespace kelu::engine::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace kelu::engine {
namespace {

HWY_EXPORT(SumColumnsOnTarget);

// So many bytes may be summed in 16 bits.
constexpr int kRowsIn16Bits = 257;

void FillBlockRow(const ImageView& source, const MutableImageView& target, int top, int bottom, int blockWidth) {
    const auto width = static_cast<std::size_t>(source.width), side = static_cast<std::size_t>(blockWidth);
    std::vector<std::array<std::uint64_t, 4>> blocks((width - 1) / side + 1);
    std::vector<std::uint32_t> blueRed(width + 16), greenAlpha(width + 16);  // and the rest of a vector
    for (int y = top; y < bottom; y += kRowsIn16Bits) {
        HWY_DYNAMIC_DISPATCH(SumColumnsOnTarget)
        (source, y, std::min(bottom, y + kRowsIn16Bits), blueRed.data(), greenAlpha.data());
        for (std::size_t block = 0; block < blocks.size(); ++block) {
            std::array<std::uint64_t, 4>& sums = blocks[block];
            for (std::size_t x = block * side; x < std::min(width, (block + 1) * side); ++x) {
                sums[0] += blueRed[x] & 0xffffu;
                sums[1] += greenAlpha[x] & 0xffffu;
                sums[2] += blueRed[x] >> 16;
                sums[3] += greenAlpha[x] >> 16;
            }
        }
    }

    std::uint32_t* const first = target.Row(top);
    for (std::size_t block = 0; block < blocks.size(); ++block) {
        const std::size_t begin = block * side, end = std::min(width, begin + side);
        const std::uint64_t pixels = (end - begin) * static_cast<std::uint64_t>(bottom - top);
        std::uint32_t mean = 0;
        for (std::size_t c = 0; c < 4; ++c)
            mean |= static_cast<std::uint32_t>((blocks[block][c] + pixels / 2) / pixels) << (8 * c);
        std::fill(first + begin, first + end, mean);
    }
    for (int y = top + 1; y < bottom; ++y) std::memcpy(target.Row(y), first, width * 4);
}

}  // namespace

void Mosaic(const ImageView& source, const MutableImageView& target, int blockWidth, int blockHeight, const Run& run) {
    const int width = std::clamp(blockWidth, 1, source.width), height = std::clamp(blockHeight, 1, source.height);
    if (width == 1 && height == 1) return Copy(source, target, run);
    const std::int64_t rowPixels = std::int64_t{source.width} * height;
    SplitRows(run, (source.height - 1) / height + 1, rowPixels, [&](int begin, int end) {
        for (int block = begin; block < end; ++block)
            FillBlockRow(source, target, block * height, std::min(source.height, (block + 1) * height), width);
    });
}

}  // namespace kelu::engine
#endif
