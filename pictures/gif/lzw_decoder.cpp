// LZW with growing code width, as GIF uses it.
// SPDX-License-Identifier: MIT
#include "pictures/gif/lzw_decoder.h"

#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int kMaxCodeBits = 12;
constexpr int kMaxCodes = 1 << kMaxCodeBits;

// Codes out of sub-blocks, low bits first.
class CodeReader {
 public:
    explicit CodeReader(std::span<const std::uint8_t> subBlocks) : bytes_(subBlocks) {}

    // -1 at the end of the data.
    int ReadCode(int codeBits) {
        while (bitCount_ < codeBits) {
            while (blockLeft_ == 0) {
                if (pos_ >= bytes_.size() || bytes_[pos_] == 0) return -1;
                blockLeft_ = bytes_[pos_++];
            }
            if (pos_ >= bytes_.size()) return -1;
            bits_ |= static_cast<std::uint32_t>(bytes_[pos_++]) << bitCount_;
            bitCount_ += 8;
            --blockLeft_;
        }
        const int code = static_cast<int>(bits_ & ((1U << codeBits) - 1));
        bits_ >>= codeBits;
        bitCount_ -= codeBits;
        return code;
    }

 private:
    std::span<const std::uint8_t> bytes_;
    std::size_t pos_ = 0;
    int blockLeft_ = 0;
    std::uint32_t bits_ = 0;
    int bitCount_ = 0;
};

// Every string but the single letters was written out once already: an entry only remembers where, and how long it is.
struct Entry {
    std::size_t start;
    std::size_t length;
};

}  // namespace

std::size_t DecodeLzw(std::span<const std::uint8_t> subBlocks, int minCodeSize, std::span<std::uint8_t> indices) {
    if (minCodeSize < 1 || minCodeSize >= kMaxCodeBits) return 0;
    const int clearCode = 1 << minCodeSize;
    const int endCode = clearCode + 1;
    std::array<Entry, kMaxCodes> entries;
    CodeReader reader(subBlocks);
    int codeBits = minCodeSize + 1;
    int nextCode = endCode + 1;
    bool afterClear = true;  // no string before this one, so none to extend
    Entry previous{0, 0};
    std::size_t written = 0;

    while (written < indices.size()) {
        const int code = reader.ReadCode(codeBits);
        if (code == -1 || code == endCode) break;
        if (code == clearCode) {
            codeBits = minCodeSize + 1;
            nextCode = endCode + 1;
            afterClear = true;
            continue;
        }
        // With a full table the encoder goes on using it until it chooses to clear: no entry is added then.
        const bool adds = !afterClear && nextCode < kMaxCodes;
        if (adds) entries[nextCode] = {previous.start, previous.length + 1};
        if (code > (adds ? nextCode : nextCode - 1)) break;
        if (adds) ++nextCode;

        const std::size_t start = written;
        if (code < clearCode) {
            indices[written++] = static_cast<std::uint8_t>(code);
        } else {
            // The string may overlap what it writes (its last letter is its own first), hence one by one, forwards.
            const Entry entry = entries[code];
            const std::size_t end = start + std::min(entry.length, indices.size() - start);
            for (std::size_t from = entry.start; written < end;) indices[written++] = indices[from++];
        }
        previous = {start, written - start};
        afterClear = false;
        if (nextCode == (1 << codeBits) && codeBits < kMaxCodeBits) ++codeBits;
    }
    return written;
}

}  // namespace kelu
