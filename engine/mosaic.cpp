// Blocks of their mean: columns of a block row are summed first, in a loop that the compiler turns into vectors.
// SPDX-License-Identifier: MIT
#include "engine/mosaic.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "engine/bands.h"
#include "engine/copy.h"

namespace kelu::engine {
namespace {

// So many rows of bytes may be summed in 16 bits.
constexpr int kRowsIn16Bits = 257;

void AddRow(const std::uint8_t* row, std::size_t channels, std::uint16_t* sums) {
    for (std::size_t i = 0; i < channels; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + row[i]);
}

void FillBlockRow(const ImageView& source, const MutableImageView& target, int top, int bottom, int blockWidth) {
    const auto width = static_cast<std::size_t>(source.width), side = static_cast<std::size_t>(blockWidth);
    std::vector<std::array<std::uint64_t, 4>> blocks((width - 1) / side + 1);
    std::vector<std::uint16_t> columns(width * 4);
    for (int y = top; y < bottom; y += kRowsIn16Bits) {
        std::fill(columns.begin(), columns.end(), std::uint16_t{0});
        for (int row = y; row < std::min(bottom, y + kRowsIn16Bits); ++row)
            AddRow(source.data + row * source.stride, width * 4, columns.data());
        for (std::size_t block = 0; block < blocks.size(); ++block)
            for (std::size_t x = block * side; x < std::min(width, (block + 1) * side); ++x)
                for (std::size_t c = 0; c < 4; ++c) blocks[block][c] += columns[4 * x + c];
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
