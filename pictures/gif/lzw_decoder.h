// Unpacks the compressed data of one GIF image.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kelu {

/// Decodes a chain of sub-blocks (length byte, data, ... , 0) into `indices`. `minCodeSize` is the byte that the file
/// gives before them, 1 to 11; of an index its low byte counts. Returns how many indices were written: fewer than asked
/// for when the data ends early or is damaged, and 0 for an illegal code size. Indices behind these are left alone.
std::size_t DecodeLzw(std::span<const std::uint8_t> subBlocks, int minCodeSize, std::span<std::uint8_t> indices);

}  // namespace kelu
