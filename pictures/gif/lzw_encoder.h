// Packs the pixels of one GIF image.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kelu {

/// Compresses palette indices with a smallest code size of 8 and appends the sub-blocks, without the terminator, to
/// `output`. Rows are given one after the other by Add; Finish closes the stream.
class LzwEncoder {
 public:
    explicit LzwEncoder(std::vector<std::uint8_t>& output);

    void Add(std::span<const std::uint8_t> indices);
    void Finish();

 private:
    /// Code of the string `prefix_` followed by `index`, or -1; `slot` is then where it belongs.
    int Find(int index, int key, int& slot) const;
    void Clear();
    void WriteCode(int code);
    void Flush();
    void PutByte(std::uint8_t byte);
    void WriteSubBlock();

    std::vector<std::uint8_t>& output_;
    std::vector<std::int32_t> hashKeys_;
    std::vector<std::int32_t> hashCodes_;
    std::vector<std::uint8_t> subBlock_;
    int prefix_ = -1;  // -1 before the first pixel
    int codeBits_ = 0;
    int maxCode_ = 0;
    int nextCode_ = 0;
    std::uint32_t bits_ = 0;
    int bitCount_ = 0;
};

}  // namespace kelu
