// TGA, told by the plausibility of its header. The format is a page long, and the second reader loses the alpha of grey
// pictures and shows those whose alpha is not used as clear.
// SPDX-License-Identifier: MIT
#include "pictures/bytes.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

// The fields of the header.
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
          mapBegin(18 + qint64{LittleEndian(head, 0, 1)}),
          dataBegin(mapBegin + qint64{mapLength} * MapBytes()) {}

    bool RunLengths() const { return imageType >= 9; }
    bool Mapped() const { return imageType == 1 || imageType == 9; }
    bool Gray() const { return imageType == 3 || imageType == 11; }
    int PixelBytes() const { return static_cast<int>(bits + 7) / 8; }
    int MapBytes() const { return static_cast<int>(mapBits + 7) / 8; }
    quint32 MapEntry(const QByteArray& bytes, quint32 number) const {
        return LittleEndian(bytes, mapBegin + qint64{number} * MapBytes(), MapBytes());
    }
    qint64 Pixels() const { return qint64{width} * height; }

    quint32 mapType, imageType, mapLength, mapBits, width, height, bits, descriptor;
    qint64 mapBegin, dataBegin;
};

// 5 bits as 8, the whole range.
quint32 Widen(quint32 five) { return (five * 255 + 15) / 31; }

class TgaDecoder {
 public:
    explicit TgaDecoder(const QByteArray& bytes) : bytes_(bytes), tga_(bytes), at_(tga_.dataBegin) {}

    QImage Read() {
        CheckPictureSize(tga_.width, tga_.height);
        if (at_ + (tga_.RunLengths() ? 1 : tga_.Pixels() * tga_.PixelBytes()) > bytes_.size()) ThrowCutShort();
        const auto width = static_cast<int>(tga_.width);
        const auto height = static_cast<int>(tga_.height);
        QImage image = MakePicture(width, height, QImage::Format_ARGB32);
        const bool fromRight = (tga_.descriptor & 0x10) != 0;
        const bool fromTop = (tga_.descriptor & 0x20) != 0;
        for (int row = 0; row < height; ++row) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(fromTop ? row : height - 1 - row));
            for (int x = 0; x < width; ++x) line[fromRight ? width - 1 - x : x] = NextPixel();
        }
        DropIdleAlpha(image);
        return image;
    }

 private:
    QRgb NextPixel() {
        if (!tga_.RunLengths()) return TakePixel();
        if (left_ == 0) {
            if (at_ >= bytes_.size()) ThrowCutShort();
            const auto packet = static_cast<quint8>(bytes_[at_++]);
            left_ = (packet & 0x7f) + 1;
            repeats_ = (packet & 0x80) != 0;
            if (repeats_) repeated_ = TakePixel();
        }
        --left_;
        return repeats_ ? repeated_ : TakePixel();
    }

    QRgb TakePixel() {
        if (at_ + tga_.PixelBytes() > bytes_.size()) ThrowCutShort();
        const quint32 value = LittleEndian(bytes_, at_, tga_.PixelBytes());
        at_ += tga_.PixelBytes();
        if (tga_.Mapped()) return value < tga_.mapLength ? Color(tga_.MapEntry(bytes_, value), tga_.mapBits) : kBlack;
        if (tga_.Gray()) {
            const auto gray = static_cast<int>(value & 0xff);
            return qRgba(gray, gray, gray, tga_.bits == 16 ? static_cast<int>(value >> 8) : 255);
        }
        return Color(value, tga_.bits);
    }

    static QRgb Color(quint32 value, quint32 bits) {
        if (bits >= 24) return bits == 24 ? value | 0xff000000u : value;
        return 0xff000000u | Widen(value >> 10 & 31) << 16 | Widen(value >> 5 & 31) << 8 | Widen(value & 31);
    }

    static constexpr QRgb kBlack = 0xff000000u;

    const QByteArray& bytes_;
    TgaHeader tga_;
    qint64 at_;
    int left_ = 0;
    bool repeats_ = false;
    QRgb repeated_ = 0;
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

DecodedPicture DecodeTga(PictureInput& input) { return {TgaDecoder(input.Bytes()).Read()}; }

}  // namespace kelu
