// TGA: told by the plausibility of its header, and checked for its length.
// SPDX-License-Identifier: MIT
#include "pictures/bytes.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

// The fields of a TGA header that tell how long the file must be.
struct TgaHeader {
    explicit TgaHeader(const QByteArray& head)
        : mapType(LittleEndian(head, 1, 1)),
          imageType(LittleEndian(head, 2, 1)),
          mapLength(mapType == 1 ? LittleEndian(head, 5, 2) : 0),
          mapBits(LittleEndian(head, 7, 1)),
          width(LittleEndian(head, 12, 2)),
          height(LittleEndian(head, 14, 2)),
          bits(LittleEndian(head, 16, 1)),
          descriptor(LittleEndian(head, 17, 1)),
          dataBegin(18 + LittleEndian(head, 0, 1) + qint64{mapLength} * ((mapBits + 7) / 8)) {}

    bool RunLengths() const { return imageType >= 9; }
    bool Mapped() const { return imageType == 1 || imageType == 9; }
    bool Gray() const { return imageType == 3 || imageType == 11; }
    int PixelBytes() const { return static_cast<int>(bits + 7) / 8; }
    qint64 Pixels() const { return qint64{width} * height; }

    quint32 mapType, imageType, mapLength, mapBits, width, height, bits, descriptor;
    qint64 dataBegin;
};

}  // namespace

bool IsTga(const QByteArray& head, qint64 fileSize) {
    if (head.size() < 18) return false;
    const TgaHeader tga(head);
    if (tga.mapType > 1 || !OneOf(tga.imageType, {1, 2, 3, 9, 10, 11}) || tga.width == 0 || tga.height == 0)
        return false;
    if ((tga.descriptor & 0xc0) != 0 || (tga.descriptor & 15) > 8) return false;
    if (tga.Mapped() && (tga.mapType != 1 || tga.mapLength == 0 || !OneOf(tga.mapBits, {15, 16, 24, 32}))) return false;
    if (tga.Mapped() || tga.Gray() ? !OneOf(tga.bits, {8, 16}) : !OneOf(tga.bits, {15, 16, 24, 32})) return false;
    return tga.dataBegin < fileSize;
}

void CheckTga(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
    const TgaHeader tga(bytes);
    const int pixelBytes = tga.PixelBytes();
    if (!tga.RunLengths()) {
        if (tga.dataBegin + tga.Pixels() * pixelBytes > bytes.size()) ThrowCutShort();
        return;
    }
    qint64 at = tga.dataBegin;
    for (qint64 pixels = 0; pixels < tga.Pixels();) {
        if (at >= bytes.size()) ThrowCutShort();
        const auto packet = static_cast<quint8>(bytes[at]);
        const int count = (packet & 0x7f) + 1;
        pixels += count;
        at += 1 + (packet & 0x80 ? 1 : count) * pixelBytes;
    }
    if (at > bytes.size()) ThrowCutShort();
}

}  // namespace kelu
