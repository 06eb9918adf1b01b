// BMP: pictures with a palette by the toolkit, those of 16, 24 and 32 bits here, since both readers go wrong at masks,
// at rows from top to bottom and at the middle versions of the header.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>

#include "pictures/bytes.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

constexpr qint64 kFileHeader = 14;
constexpr quint32 kOldHeader = 12;
enum Compression : quint32 { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3, kMasksWithAlpha = 6 };
constexpr quint32 kEmbedded = 0x4d424544;  // the profile is in the file

struct Header {
    explicit Header(const QByteArray& head)
        : size(LittleEndian(head, kFileHeader, 4)),
          dataBegin(LittleEndian(head, 10, 4)),
          width(Old() ? qint64{LittleEndian(head, 18, 2)} : Signed(head, 18)),
          height(Old() ? qint64{LittleEndian(head, 20, 2)} : std::abs(Signed(head, 22))),
          fromTop(!Old() && Signed(head, 22) < 0),
          bits(LittleEndian(head, Old() ? 24 : 28, 2)),
          compression(Old() ? quint32{kPlain} : LittleEndian(head, 30, 4)),
          dataSize(LittleEndian(head, 34, 4)) {}

    static qint64 Signed(const QByteArray& head, qint64 at) { return static_cast<qint32>(LittleEndian(head, at, 4)); }
    bool Old() const { return size == kOldHeader; }
    bool RunLengths() const { return compression == kRuns8 || compression == kRuns4; }
    qint64 RowBytes() const { return (width * bits + 31) / 32 * 4; }

    quint32 size;
    qint64 dataBegin, width, height;
    bool fromTop;
    quint32 bits, compression;
    qint64 dataSize;
};

// The bits of one channel in a pixel, as a table from their value to 8 bits.
class Channel {
 public:
    Channel(quint32 mask, quint8 absent) : mask_(mask), shift_(mask ? std::countr_zero(mask) : 0) {
        // Of longer channels the highest 8 bits are enough.
        const int width = std::bit_width(mask >> shift_);
        shift_ += std::max(0, width - 8);
        const quint32 most = mask ? mask >> shift_ : 0;
        table_.fill(absent);
        for (quint32 value = 0; most > 0 && value <= most; ++value)
            table_[value] = static_cast<quint8>((value * 255 + most / 2) / most);
    }
    quint32 Of(quint32 pixel) const { return table_[(pixel & mask_) >> shift_]; }

 private:
    quint32 mask_;
    int shift_;
    std::array<quint8, 256> table_;
};

struct Masks {
    quint32 red, green, blue, alpha;
};

Masks ReadMasks(const QByteArray& head, const Header& header) {
    if (header.compression == kPlain) {
        if (header.bits == 16) return {0x7c00, 0x3e0, 0x1f, 0};
        return {0xff0000, 0xff00, 0xff, 0};
    }
    const bool alpha = header.size >= 56 || header.compression == kMasksWithAlpha;
    return {LittleEndian(head, 54, 4), LittleEndian(head, 58, 4), LittleEndian(head, 62, 4),
            alpha ? LittleEndian(head, 66, 4) : 0};
}

QImage DecodeMasked(const QByteArray& bytes, const Header& header) {
    const Masks masks = ReadMasks(bytes, header);
    const Channel red(masks.red, 0), green(masks.green, 0), blue(masks.blue, 0), alpha(masks.alpha, 255);
    const auto width = static_cast<int>(header.width);
    const auto height = static_cast<int>(header.height);
    const int pixelBytes = static_cast<int>(header.bits) / 8;
    QImage image = MakePicture(width, height, masks.alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int row = 0; row < height; ++row) {
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(header.fromTop ? row : height - 1 - row));
        const auto* in =
            reinterpret_cast<const quint8*>(bytes.constData()) + header.dataBegin + row * header.RowBytes();
        for (int x = 0; x < width; ++x, in += pixelBytes) {
            quint32 pixel = in[0] | quint32{in[1]} << 8;
            if (pixelBytes > 2) pixel |= quint32{in[2]} << 16;
            if (pixelBytes > 3) pixel |= quint32{in[3]} << 24;
            out[x] = header.bits == 24
                         ? pixel | 0xff000000u
                         : alpha.Of(pixel) << 24 | red.Of(pixel) << 16 | green.Of(pixel) << 8 | blue.Of(pixel);
        }
    }
    if (masks.alpha) DropIdleAlpha(image);
    return image;
}

void Describe(const QByteArray& bytes, const Header& header, DecodedPicture& result) {
    if (header.Old()) return;
    SetResolution(result.image, static_cast<double>(Header::Signed(bytes, 38)),
                  static_cast<double>(Header::Signed(bytes, 42)));
    if (header.size >= 124 && LittleEndian(bytes, 70, 4) == kEmbedded)
        result.metadata.profile = bytes.mid(kFileHeader + LittleEndian(bytes, 126, 4), LittleEndian(bytes, 130, 4));
}

}  // namespace

bool IsBmp(const QByteArray& head, qint64) {
    return head.startsWith("BM") && OneOf(LittleEndian(head, kFileHeader, 4), {12, 16, 40, 52, 56, 64, 108, 124});
}

void CheckBmp(PictureInput& input) {
    const Header header(input.Head());
    CheckPictureSize(header.width, header.height);
    // The filling of the last row may be missing.
    const qint64 needed = header.RunLengths()
                              ? header.dataSize
                              : header.RowBytes() * (header.height - 1) + (header.width * header.bits + 7) / 8;
    if (header.dataBegin + std::max<qint64>(needed, 1) > input.Size()) ThrowCutShort();
}

DecodedPicture DecodeBmp(PictureInput& input) {
    const Header header(input.Head());
    DecodedPicture result;
    if (OneOf(header.bits, {16, 24, 32}) && OneOf(header.compression, {kPlain, kMasks, kMasksWithAlpha})) {
        result.image = DecodeMasked(input.Bytes(), header);
    } else {
        QByteArray filled = input.Bytes() + QByteArray(4, '\0');
        QBuffer buffer(&filled);
        buffer.open(QIODevice::ReadOnly);
        PictureInput whole(buffer, input.Format(), input.Box());
        result = DecodeWithToolkit(whole);
    }
    Describe(input.Bytes(), header, result);
    return result;
}

}  // namespace kelu
