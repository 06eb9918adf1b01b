// SPDX-License-Identifier: MIT
#include "pictures/gif/animation_encoder.h"

#include "pictures/gif/lzw_encoder.h"

namespace kelu {
namespace {

constexpr std::size_t kPaletteEntries = 256;
constexpr std::uint8_t kLeaveFrame = 1 << 2;  // disposal in the flags of a graphic control block
constexpr std::uint8_t kHasTransparency = 1;

void PutWord(std::vector<std::uint8_t>& output, int value) {
    output.push_back(static_cast<std::uint8_t>(value & 0xFF));
    output.push_back(static_cast<std::uint8_t>(value >> 8));
}

void PutText(std::vector<std::uint8_t>& output, std::string_view text) {
    output.insert(output.end(), text.begin(), text.end());
}

}  // namespace

AnimationEncoder::AnimationEncoder(const QSize& screen, const ColourTable& colours, std::optional<int> loops) {
    PutText(output_, "GIF89a");
    PutWord(output_, screen.width());
    PutWord(output_, screen.height());
    output_.insert(output_.end(), {0x87, 0, 0});  // global table of 256; background 0; no aspect ratio
    for (std::size_t i = 0; i < kPaletteEntries; ++i) {
        const std::uint32_t colour = i < colours.size() ? colours[i] : 0;  // unused ones are black
        for (const int shift : {16, 8, 0}) output_.push_back(static_cast<std::uint8_t>(colour >> shift));
    }
    if (!loops) return;
    output_.insert(output_.end(), {0x21, 0xFF, 11});
    PutText(output_, "NETSCAPE2.0");
    output_.insert(output_.end(), {3, 1});
    PutWord(output_, *loops);
    output_.push_back(0);
}

void AnimationEncoder::Add(const QImage& indices, const QPoint& at, int delayMs, int transparentIndex) {
    if (delayMs > 0 || transparentIndex >= 0) {
        // extension, graphic control, 4 bytes: flags, delay in hundredths of a second, index; terminator
        const int flags = (delayMs > 0 ? kLeaveFrame : 0) | (transparentIndex >= 0 ? kHasTransparency : 0);
        output_.insert(output_.end(), {0x21, 0xF9, 4, static_cast<std::uint8_t>(flags)});
        PutWord(output_, delayMs / 10);
        output_.push_back(static_cast<std::uint8_t>(std::max(transparentIndex, 0)));
        output_.push_back(0);
    }
    output_.push_back(0x2C);
    for (const int value : {at.x(), at.y(), indices.width(), indices.height()}) PutWord(output_, value);
    output_.push_back(0);  // no local table, not interlaced
    output_.push_back(8);  // smallest code size
    LzwEncoder encoder(output_);
    for (int row = 0; row < indices.height(); ++row)
        encoder.Add({indices.constScanLine(row), static_cast<std::size_t>(indices.width())});
    encoder.Finish();
    output_.push_back(0);
}

QByteArray AnimationEncoder::Finish() {
    output_.push_back(0x3B);
    return QByteArray(reinterpret_cast<const char*>(output_.data()), static_cast<qsizetype>(output_.size()));
}

}  // namespace kelu
