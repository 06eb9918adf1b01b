// PCX: told by its header, checked for its length, and the one kind that the second reader gets wrong.
// SPDX-License-Identifier: MIT
#include <array>

#include "pictures/bytes.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

constexpr qint64 kHeaderBytes = 128;

}  // namespace

bool IsPcx(const QByteArray& head, qint64) {
    return head.size() >= 32 && head[0] == 10 && OneOf(LittleEndian(head, 1, 1), {0, 2, 3, 4, 5}) &&
           LittleEndian(head, 2, 1) <= 1 && OneOf(LittleEndian(head, 3, 1), {1, 2, 4, 8}) &&
           LittleEndian(head, 8, 2) >= LittleEndian(head, 4, 2) &&
           LittleEndian(head, 10, 2) >= LittleEndian(head, 6, 2);
}

void CheckPcx(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
    if (bytes.size() < kHeaderBytes) ThrowCutShort();
    const qint64 rows = qint64{LittleEndian(bytes, 10, 2)} - LittleEndian(bytes, 6, 2) + 1;
    const qint64 needed = rows * LittleEndian(bytes, 65, 1) * LittleEndian(bytes, 66, 2);
    qint64 decoded = 0;
    if (bytes[2] == 0) {
        decoded = bytes.size() - 128;
    } else {
        for (qint64 at = 128; at < bytes.size() && decoded < needed; ++at) {
            const auto byte = static_cast<quint8>(bytes[at]);
            const bool run = byte >= 0xc0;
            if (run && ++at >= bytes.size()) break;
            decoded += run ? byte & 0x3f : 1;
        }
    }
    if (decoded < needed) ThrowCutShort();
    // 256 colours stand at the very end, behind a mark.
    const bool palette = bytes[1] == 5 && bytes[3] == 8 && bytes[65] == 1;
    if (palette && (bytes.size() < 128 + 769 || bytes[bytes.size() - 769] != 12)) ThrowCutShort();
}

// Colours from the first two palette entries when they differ, else black and white.
DecodedPicture DecodeBlackAndWhitePcx(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
    if (bytes[3] != 1 || bytes[65] != 1) return {};
    const int width = static_cast<int>(LittleEndian(bytes, 8, 2) - LittleEndian(bytes, 4, 2)) + 1;
    const int height = static_cast<int>(LittleEndian(bytes, 10, 2) - LittleEndian(bytes, 6, 2)) + 1;
    const auto lineBytes = static_cast<int>(LittleEndian(bytes, 66, 2));
    if (lineBytes * 8 < width) ThrowDamaged();
    std::array<QRgb, 2> palette{0xff000000u | BigEndian(bytes, 16, 3), 0xff000000u | BigEndian(bytes, 19, 3)};
    if (palette[0] == palette[1]) palette = {0xff000000u, 0xffffffffu};
    QImage image = MakePicture(width, height, QImage::Format_RGB32);
    qint64 at = 128;
    int run = 0;
    quint8 value = 0;
    const bool packed = bytes[2] == 1;
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int i = 0; i < lineBytes; ++i, --run) {
            if (run <= 0) {
                value = static_cast<quint8>(bytes[at++]);
                run = 1;
                if (packed && value >= 0xc0) {
                    run = value & 0x3f;
                    value = static_cast<quint8>(bytes[at++]);
                    if (run == 0) ThrowDamaged();
                }
            }
            for (int bit = 0; bit < 8 && i * 8 + bit < width; ++bit)
                row[i * 8 + bit] = palette[(value >> (7 - bit)) & 1];
        }
    }
    return {image};
}

}  // namespace kelu
