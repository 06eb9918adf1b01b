// Picture formats told by content.
// SPDX-License-Identifier: MIT
#include "pictures/picture_format.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <initializer_list>
#include <vector>

#include "pictures/picture.h"
#include "platform/error.h"

namespace kelu {
namespace {

bool OneOf(quint32 value, std::initializer_list<quint32> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool IsBmp(const QByteArray& head) {
    return head.startsWith("BM") && OneOf(LittleEndian(head, 14, 4), {12, 16, 40, 52, 56, 64, 108, 124});
}

bool IsPcx(const QByteArray& head) {
    return head.size() >= 32 && head[0] == 10 && OneOf(LittleEndian(head, 1, 1), {0, 2, 3, 4, 5}) &&
           LittleEndian(head, 2, 1) <= 1 && OneOf(LittleEndian(head, 3, 1), {1, 2, 4, 8}) &&
           LittleEndian(head, 8, 2) >= LittleEndian(head, 4, 2) &&
           LittleEndian(head, 10, 2) >= LittleEndian(head, 6, 2);
}

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
    bool Grey() const { return imageType == 3 || imageType == 11; }
    int PixelBytes() const { return static_cast<int>(bits + 7) / 8; }
    qint64 Pixels() const { return qint64{width} * height; }

    quint32 mapType, imageType, mapLength, mapBits, width, height, bits, descriptor;
    qint64 dataBegin;
};

bool IsTga(const QByteArray& head, qint64 fileSize) {
    if (head.size() < 18) return false;
    const TgaHeader tga(head);
    if (tga.mapType > 1 || !OneOf(tga.imageType, {1, 2, 3, 9, 10, 11}) || tga.width == 0 || tga.height == 0)
        return false;
    if ((tga.descriptor & 0xc0) != 0 || (tga.descriptor & 15) > 8) return false;
    if (tga.Mapped() && (tga.mapType != 1 || tga.mapLength == 0 || !OneOf(tga.mapBits, {15, 16, 24, 32}))) return false;
    if (tga.Mapped() || tga.Grey() ? !OneOf(tga.bits, {8, 16}) : !OneOf(tga.bits, {15, 16, 24, 32})) return false;
    return tga.dataBegin < fileSize;
}

}  // namespace

void ThrowCutShort() { throw Error(kEndOfFile, QStringLiteral("The picture file is cut short")); }

void ThrowDamaged() { throw Error(kInvalidPicture, QStringLiteral("The picture file is damaged")); }

quint32 LittleEndian(const QByteArray& bytes, qint64 at, int count) {
    quint32 value = 0;
    for (int i = count; i-- > 0;)
        value = (value << 8) | (at + i < bytes.size() ? static_cast<quint8>(bytes[at + i]) : 0u);
    return value;
}

quint32 BigEndian(const QByteArray& bytes, qint64 at, int count) {
    quint32 value = 0;
    for (int i = 0; i < count; ++i)
        value = (value << 8) | (at + i < bytes.size() ? static_cast<quint8>(bytes[at + i]) : 0u);
    return value;
}

PictureFormat TellPictureFormat(const QByteArray& head, qint64 fileSize) {
    if (head.startsWith("\xff\xd8\xff")) return PictureFormat::Jpeg;
    if (head.startsWith("\x89PNG\r\n\x1a\n")) return PictureFormat::Png;
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a")) return PictureFormat::Gif;
    if (IsBmp(head)) return PictureFormat::Bmp;
    for (const char* signature : {"II*\0", "MM\0*", "II+\0", "MM\0+"})
        if (head.startsWith(QByteArray(signature, 4))) return PictureFormat::Tiff;
    if (head.startsWith(QByteArray("8BPS\0\1", 6))) return PictureFormat::Psd;
    if (IsPcx(head)) return PictureFormat::Pcx;
    if (IsTga(head, fileSize)) return PictureFormat::Tga;
    return PictureFormat::Unknown;
}

void CheckBmpLength(const QByteArray& head, qint64 fileSize) {
    const qint64 dataBegin = LittleEndian(head, 10, 4);
    const quint32 headerSize = LittleEndian(head, 14, 4);
    const bool old = headerSize == 12;
    const qint64 width = old ? qint64{LittleEndian(head, 18, 2)} : static_cast<qint32>(LittleEndian(head, 18, 4));
    const qint64 height =
        old ? qint64{LittleEndian(head, 20, 2)} : std::llabs(static_cast<qint32>(LittleEndian(head, 22, 4)));
    CheckPictureSize(width, height);
    const quint32 bits = LittleEndian(head, old ? 24 : 28, 2);
    const quint32 compression = old ? 0 : LittleEndian(head, 30, 4);
    const bool runLengths = compression == 1 || compression == 2;
    const qint64 needed = runLengths ? qint64{LittleEndian(head, 34, 4)} : (width * bits + 31) / 32 * 4 * height;
    if (dataBegin + std::max<qint64>(needed, 1) > fileSize) ThrowCutShort();
}

void CheckTiffLength(QIODevice& device) {
    constexpr qint64 kMostValues = 1 << 20;
    constexpr std::array<int, 13> kTypeBytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    const auto read = [&](qint64 at, qint64 count) {
        if (at + count > device.size() || !device.seek(at)) ThrowCutShort();
        return device.read(count);
    };
    const bool little = device.peek(2) == "II";
    const auto number = [&](const QByteArray& bytes, qint64 at, int count) {
        return little ? LittleEndian(bytes, at, count) : BigEndian(bytes, at, count);
    };
    const QByteArray head = read(0, 8);
    if (number(head, 2, 2) != 42) {  // files of more than 4 GB are laid out differently
        device.seek(0);
        return;
    }
    const qint64 directory = number(head, 4, 4);
    const qint64 entries = number(read(directory, 2), 0, 2);
    const QByteArray fields = read(directory + 2, entries * 12);
    std::vector<qint64> offsets, sizes;
    for (qint64 entry = 0; entry < fields.size(); entry += 12) {
        const quint32 tag = number(fields, entry, 2);
        const quint32 type = number(fields, entry + 2, 2);
        const qint64 count = number(fields, entry + 4, 4);
        const int bytes = type < kTypeBytes.size() ? kTypeBytes[type] : 0;
        const qint64 at = count * bytes <= 4 ? directory + 2 + entry + 8 : qint64{number(fields, entry + 8, 4)};
        if (at + count * bytes > device.size()) ThrowCutShort();
        const bool places = OneOf(tag, {273, 324});  // of strips, of tiles
        if (!places && !OneOf(tag, {279, 325})) continue;
        if (bytes == 0 || offsets.size() + sizes.size() > kMostValues) ThrowDamaged();
        const QByteArray values = read(at, std::min(count, kMostValues) * bytes);
        for (qint64 i = 0; i < count && (i + 1) * bytes <= values.size(); ++i)
            (places ? offsets : sizes).push_back(number(values, i * bytes, bytes));
    }
    for (std::size_t i = 0; i < std::min(offsets.size(), sizes.size()); ++i)
        if (offsets[i] + sizes[i] > device.size()) ThrowCutShort();
    device.seek(0);
}

void CheckPcxLength(const QByteArray& bytes) {
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

void CheckTgaLength(const QByteArray& bytes) {
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

void CheckPsdLength(const QByteArray& bytes) {
    const qint64 channels = BigEndian(bytes, 12, 2);
    const qint64 height = BigEndian(bytes, 14, 4);
    const qint64 width = BigEndian(bytes, 18, 4);
    const qint64 bits = BigEndian(bytes, 22, 2);
    CheckPictureSize(width, height);
    qint64 at = 26;
    for (int section = 0; section < 3; ++section) at += 4 + qint64{BigEndian(bytes, at, 4)};
    const quint32 compression = BigEndian(bytes, at, 2);
    at += 2;
    qint64 needed = channels * height * ((width * bits + 7) / 8);
    if (compression == 1) {
        needed = channels * height * 2;
        if (at + needed > bytes.size()) ThrowCutShort();
        for (qint64 row = 0; row < channels * height; ++row) needed += BigEndian(bytes, at + row * 2, 2);
    }
    if (at + (compression <= 1 ? needed : 1) > bytes.size()) ThrowCutShort();
}

}  // namespace kelu
