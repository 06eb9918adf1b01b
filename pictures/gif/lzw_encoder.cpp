// LZW with growing code width and a hash table of open addressing.
// SPDX-License-Identifier: MIT
#include "pictures/gif/lzw_encoder.h"

#include <algorithm>

namespace kelu {
namespace {

constexpr int kTableSize = 5003;  // prime, so that the probing reaches every slot; about 80 % full with all codes
constexpr int kHashFactor = 16;
constexpr int kFirstCodeBits = 9;
constexpr int kClearCode = 256;
constexpr int kEndCode = 257;
constexpr int kCodeLimit = 4096;
constexpr std::size_t kSubBlockLength = 254;

}  // namespace

LzwEncoder::LzwEncoder(std::vector<std::uint8_t>& output)
    : output_(output), hashKeys_(kTableSize), hashCodes_(kTableSize) {
    subBlock_.reserve(kSubBlockLength);
    Clear();
    WriteCode(kClearCode);
}

void LzwEncoder::Clear() {
    std::fill(hashKeys_.begin(), hashKeys_.end(), -1);
    codeBits_ = kFirstCodeBits;
    maxCode_ = (1 << codeBits_) - 1;
    nextCode_ = kEndCode + 1;
}

int LzwEncoder::Find(int index, int key, int& slot) const {
    slot = (index * kHashFactor) ^ prefix_;
    if (slot >= kTableSize) slot = 0;
    if (hashKeys_[slot] == key) return hashCodes_[slot];
    const int step = slot == 0 ? 1 : kTableSize - slot;
    while (hashKeys_[slot] >= 0) {
        slot -= step;
        if (slot < 0) slot += kTableSize;
        if (hashKeys_[slot] == key) return hashCodes_[slot];
    }
    return -1;
}

void LzwEncoder::Add(std::span<const std::uint8_t> indices) {
    for (const std::uint8_t index : indices) {
        if (prefix_ < 0) {
            prefix_ = index;
            continue;
        }
        const int key = index * kCodeLimit + prefix_;
        int slot = 0;
        const int code = Find(index, key, slot);
        if (code >= 0) {
            prefix_ = code;
            continue;
        }
        WriteCode(prefix_);
        prefix_ = index;
        if (nextCode_ == kCodeLimit) {
            WriteCode(kClearCode);
            Clear();
            continue;
        }
        hashKeys_[slot] = key;
        hashCodes_[slot] = nextCode_;
        if (nextCode_ > maxCode_) maxCode_ = (1 << ++codeBits_) - 1;
        ++nextCode_;
    }
}

void LzwEncoder::Finish() {
    if (prefix_ >= 0) {
        WriteCode(prefix_);
        // The reader adds a last entry for this code too; where that widens its codes the end code must follow.
        if (nextCode_ > maxCode_ && nextCode_ < kCodeLimit) ++codeBits_;
    }
    WriteCode(kEndCode);
    Flush();
}

void LzwEncoder::WriteCode(int code) {
    bits_ |= static_cast<std::uint32_t>(code) << bitCount_;
    bitCount_ += codeBits_;
    for (; bitCount_ >= 8; bitCount_ -= 8, bits_ >>= 8) PutByte(static_cast<std::uint8_t>(bits_));
}

void LzwEncoder::Flush() {
    if (bitCount_ > 0) PutByte(static_cast<std::uint8_t>(bits_));
    bits_ = 0;
    bitCount_ = 0;
    WriteSubBlock();
}

void LzwEncoder::PutByte(std::uint8_t byte) {
    subBlock_.push_back(byte);
    if (subBlock_.size() == kSubBlockLength) WriteSubBlock();
}

void LzwEncoder::WriteSubBlock() {
    if (subBlock_.empty()) return;
    output_.push_back(static_cast<std::uint8_t>(subBlock_.size()));
    output_.insert(output_.end(), subBlock_.begin(), subBlock_.end());
    subBlock_.clear();
}

}  // namespace kelu
