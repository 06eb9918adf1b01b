// The first frame of a GIF, placed on the whole screen of the file.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "pictures/bytes.h"
#include "pictures/gif/lzw_decoder.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"

namespace kelu {
namespace {

constexpr qsizetype kScreenEnd = 13;  // signature, size of the screen, color table flags
constexpr quint8 kExtension = 0x21;
constexpr quint8 kImage = 0x2c;
constexpr quint8 kGraphicControl = 0xf9;

using Palette = std::array<QRgb, 256>;

class GifDecoder {
 public:
    explicit GifDecoder(const QByteArray& bytes) : bytes_(bytes), screen_(Word(6), Word(8)) {
        colors_.fill(0xff000000u);
        if (bytes.size() < kScreenEnd) ThrowCutShort();
        ReadPalette(Byte(kScreenEnd - 3));
    }

    QImage FirstFrame() {
        for (;;) {
            const quint8 block = Take();
            if (block == kImage) return ReadFrame();
            if (block == kExtension)
                ReadExtension();
            else if (block != 0)
                ThrowDamaged();  // the trailer, too: there is no picture
        }
    }

 private:
    quint8 Byte(qsizetype at) const { return static_cast<quint8>(LittleEndian(bytes_, at, 1)); }
    int Word(qsizetype at) const { return static_cast<int>(LittleEndian(bytes_, at, 2)); }
    quint8 Take() {
        if (at_ >= bytes_.size()) ThrowCutShort();
        return static_cast<quint8>(bytes_[at_++]);
    }

    void ReadPalette(int flags) {
        if ((flags & 0x80) == 0) return;
        for (int i = 0; i < 2 << (flags & 7); ++i, at_ += 3)
            colors_[static_cast<std::size_t>(i)] = 0xff000000u | BigEndian(bytes_, at_, 3);
    }

    void ReadExtension() {
        const quint8 label = Take();
        if (label == kGraphicControl && Byte(at_) >= 4 && (Byte(at_ + 1) & 1) != 0) transparent_ = Byte(at_ + 4);
        while (const quint8 length = Take()) at_ += length;
    }

    QImage ReadFrame() {
        const QRect frame(Word(at_), Word(at_ + 2), Word(at_ + 4), Word(at_ + 6));
        const quint8 flags = Byte(at_ + 8);
        at_ += 9;
        if (at_ >= bytes_.size()) ThrowCutShort();
        if (screen_.isEmpty()) screen_ = QSize(frame.right() + 1, frame.bottom() + 1);
        CheckPictureSize(screen_.width(), screen_.height());
        CheckPictureSize(frame.width(), frame.height());
        ReadPalette(flags);
        if (transparent_ >= 0) colors_[static_cast<std::size_t>(transparent_)] = 0;
        const std::vector<quint8> indexes = ReadIndexes(frame.size());
        const bool opaque = transparent_ < 0 && frame.contains(QRect(QPoint(0, 0), screen_));
        QImage image =
            MakePicture(screen_.width(), screen_.height(), opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
        if (!opaque) image.fill(0u);
        const int end = std::min(frame.width(), screen_.width() - frame.left());
        const quint8* line = indexes.data();
        for (const int row : RowOrder(frame.height(), (flags & 0x40) != 0)) {
            if (const int y = frame.top() + row; y < screen_.height()) {
                auto* out = reinterpret_cast<QRgb*>(image.scanLine(y)) + frame.left();
                for (int x = 0; x < end; ++x) out[x] = colors_[line[x]];
            }
            line += frame.width();
        }
        return image;
    }

    // What follows the last pixel does not matter.
    std::vector<quint8> ReadIndexes(const QSize& size) {
        const int codeSize = Take();
        std::vector<quint8> indexes(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()));
        const std::span data(reinterpret_cast<const quint8*>(bytes_.constData()),
                             static_cast<std::size_t>(bytes_.size()));
        if (DecodeLzw(data.subspan(static_cast<std::size_t>(std::min(at_, bytes_.size()))), codeSize, indexes) ==
            indexes.size())
            return indexes;
        while (const quint8 length = Take()) at_ += length;  // ends the file: cut short
        ThrowDamaged();
    }

    // Which row of the frame each line of the data is.
    static std::vector<int> RowOrder(int height, bool interlaced) {
        constexpr std::array<std::array<int, 2>, 4> kPasses{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
        std::vector<int> order;
        order.reserve(static_cast<std::size_t>(height));
        for (const auto& [begin, step] : kPasses)
            for (int row = begin; interlaced && row < height; row += step) order.push_back(row);
        for (int row = 0; !interlaced && row < height; ++row) order.push_back(row);
        return order;
    }

    const QByteArray& bytes_;
    qsizetype at_ = kScreenEnd;
    QSize screen_;
    Palette colors_;
    int transparent_ = -1;
};

}  // namespace

DecodedPicture DecodeGif(PictureInput& input) { return {GifDecoder(input.Bytes()).FirstFrame()}; }

}  // namespace kelu
