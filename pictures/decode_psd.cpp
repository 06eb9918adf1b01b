// PSD: checked for its length, and the one kind that the second reader refuses; it gets the others without their
// layers.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include "pictures/bytes.h"
#include "pictures/photoshop_resources.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr quint32 kIndexed = 2;  // a colour mode

// A PackBits row; its length was checked with the whole file's.
void UnpackRow(const QByteArray& bytes, qint64 at, qint64 end, QByteArray& row) {
    qsizetype filled = 0;
    while (at < end && filled < row.size()) {
        const auto control = static_cast<qint8>(bytes[at++]);
        if (control == -128) continue;
        const bool repeat = control < 0;
        const qsizetype count = std::min<qsizetype>(repeat ? 1 - control : control + 1, row.size() - filled);
        if (at + (repeat ? 1 : count) > end) ThrowDamaged();
        for (qsizetype i = 0; i < count; ++i) row[filled++] = bytes[repeat ? at : at + i];
        at += repeat ? 1 : count;
    }
    if (filled < row.size()) ThrowDamaged();
}

}  // namespace

void CheckPsd(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
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

DecodedPicture DecodeIndexedPsd(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
    if (BigEndian(bytes, 24, 2) != kIndexed || BigEndian(bytes, 22, 2) != 8 || BigEndian(bytes, 12, 2) != 1) return {};
    const auto height = static_cast<int>(BigEndian(bytes, 14, 4));
    const auto width = static_cast<int>(BigEndian(bytes, 18, 4));
    constexpr qint64 kPalette = 30;  // all reds, all greens, all blues
    if (BigEndian(bytes, 26, 4) < 768) ThrowDamaged();
    qint64 at = 26;
    for (int section = 0; section < 3; ++section) at += 4 + qint64{BigEndian(bytes, at, 4)};
    const quint32 compression = BigEndian(bytes, at, 2);
    if (compression > 1) throw Error(kInvalidPicture, PictureTexts::tr("This kind of compression is not known"));
    const bool packed = compression == 1;
    qint64 lengths = at + 2;
    at = lengths + (packed ? qint64{height} * 2 : 0);
    QImage image = MakePicture(width, height, QImage::Format_RGB32);
    QByteArray row(width, Qt::Uninitialized);
    for (int y = 0; y < height; ++y, lengths += 2) {
        const qint64 length = packed ? qint64{BigEndian(bytes, lengths, 2)} : width;
        if (packed)
            UnpackRow(bytes, at, at + length, row);
        else
            row = bytes.mid(at, width);
        at += length;
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const qint64 entry = kPalette + static_cast<quint8>(row[x]);
            out[x] = qRgb(static_cast<quint8>(bytes[entry]), static_cast<quint8>(bytes[entry + 256]),
                          static_cast<quint8>(bytes[entry + 512]));
        }
    }
    return {image};
}

DecodedPicture DecodeMergedPsd(PictureInput& input) {
    const QByteArray& bytes = input.Bytes();
    qint64 at = 26;
    for (int section = 0; section < 2; ++section) at += 4 + qint64{BigEndian(bytes, at, 4)};
    const qint64 layers = BigEndian(bytes, at, 4);
    return DecodeWithMagick(bytes.left(at) + QByteArray(4, '\0') + bytes.mid(at + 4 + layers), "PSD");
}

void DescribePsd(PictureInput& input, Metadata& metadata) {
    const QByteArray& bytes = input.Bytes();
    const qint64 at = 26 + 4 + qint64{BigEndian(bytes, 26, 4)};
    const QByteArray resources = bytes.mid(at + 4, BigEndian(bytes, at, 4));
    metadata.exif = FindResource(resources, kExifResource);
    metadata.xmp = FindResource(resources, kXmpResource);
    metadata.iptc = FindResource(resources, kIptcResource);
}

}  // namespace kelu
