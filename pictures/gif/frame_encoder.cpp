// Writing of one-image GIF files.
// SPDX-License-Identifier: MIT
#include "pictures/gif/frame_encoder.h"

#include <algorithm>
#include <vector>

#include "pictures/gif/lzw_encoder.h"

namespace kelu {
namespace {

constexpr std::size_t kPaletteEntries = 256;

void PutWord(std::vector<std::uint8_t>& output, int value) {
    output.push_back(static_cast<std::uint8_t>(value & 0xFF));
    output.push_back(static_cast<std::uint8_t>(value >> 8));
}

// A screen of the picture's size with 256 colours; unused ones are black.
void PutHeader(std::vector<std::uint8_t>& output, const QImage& indices, const ColourTable& colours) {
    for (const char letter : {'G', 'I', 'F', '8', '9', 'a'}) output.push_back(static_cast<std::uint8_t>(letter));
    PutWord(output, indices.width());
    PutWord(output, indices.height());
    output.insert(output.end(), {0x87, 0, 0});  // global table of 256; background 0; no aspect ratio
    for (std::size_t i = 0; i < kPaletteEntries; ++i) {
        const std::uint32_t colour = i < colours.size() ? colours[i] : 0;
        for (const int shift : {16, 8, 0}) output.push_back(static_cast<std::uint8_t>(colour >> shift));
    }
}

void PutTransparency(std::vector<std::uint8_t>& output, int transparentIndex) {
    // extension, graphic control, 4 bytes: flags (transparency), delay, index; terminator
    output.insert(output.end(), {0x21, 0xF9, 4, 1, 0, 0, static_cast<std::uint8_t>(transparentIndex), 0});
}

void PutImage(std::vector<std::uint8_t>& output, const QImage& indices) {
    output.push_back(0x2C);
    PutWord(output, 0);
    PutWord(output, 0);
    PutWord(output, indices.width());
    PutWord(output, indices.height());
    output.push_back(0);  // no local table, not interlaced
    output.push_back(8);  // smallest code size
    LzwEncoder encoder(output);
    for (int row = 0; row < indices.height(); ++row) {
        encoder.Add({indices.constScanLine(row), static_cast<std::size_t>(indices.width())});
    }
    encoder.Finish();
    output.push_back(0);
}

}  // namespace

QByteArray EncodeGif(const QImage& indices, const ColourTable& colours, int transparentIndex) {
    std::vector<std::uint8_t> output;
    output.reserve(static_cast<std::size_t>(indices.width()) * static_cast<std::size_t>(indices.height()) + 800);
    PutHeader(output, indices, colours);
    if (transparentIndex >= 0) PutTransparency(output, transparentIndex);
    PutImage(output, indices);
    output.push_back(0x3B);
    return QByteArray(reinterpret_cast<const char*>(output.data()), static_cast<qsizetype>(output.size()));
}

QImage PictureFromBytes(const QByteArray& gifBytes) {
    FrameStrip strip;
    if (strip.Load(gifBytes) == 0) return QImage();
    QImage picture = strip.Indices(1);
    if (picture.isNull()) return picture;
    const auto colours = strip.DrawingColours(1);
    picture.setColorTable(QList<QRgb>(colours.begin(), colours.end()));
    return picture;
}

QImage EncodeFrameAsPicture(const FrameStrip& strip, int frame) {
    if (frame < 1 || frame > strip.FrameCount() || strip.Indices(frame).isNull()) return QImage();
    const GifFrame& description = strip.Frame(frame);
    return PictureFromBytes(EncodeGif(strip.Indices(frame), strip.Colours(frame),
                                      description.HasTransparency ? description.TransparentIndex : -1));
}

}  // namespace kelu
