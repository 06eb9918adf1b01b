// Uncompressed TIFF: a head, the pixels in strips, and the directories that tell of them.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include "pictures/color_profile.h"
#include "pictures/exif.h"
#include "pictures/picture_encoders.h"
#include "pictures/xmp.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr quint32 kStripBytes = 1 << 16;
constexpr quint16 kDescriptionTag = 270;

struct Strips {
    quint32 samples, rowBytes, rows, count;
};

Strips StripsOf(const QImage& picture) {
    const quint32 samples = picture.hasAlphaChannel() ? 4 : 3;
    const quint32 rowBytes = static_cast<quint32>(picture.width()) * samples;
    const quint32 rows = std::max(kStripBytes / rowBytes, 1u);
    return {samples, rowBytes, rows, (static_cast<quint32>(picture.height()) + rows - 1) / rows};
}

// Adds what every TIFF file must tell of its pixels; resolution and orientation are there.
void Describe(const QImage& picture, const Strips& strips, TiffTags& tags) {
    const auto put = [&](quint16 tag, TiffType type, const std::vector<quint32>& numbers) {
        tags.Put(tags.main, tag, type, numbers);
    };
    const auto height = static_cast<quint32>(picture.height());
    std::vector<quint32> places, lengths;
    for (quint32 i = 0; i < strips.count; ++i) {
        places.push_back(kTiffHeadBytes + i * strips.rows * strips.rowBytes);
        lengths.push_back(std::min(strips.rows, height - i * strips.rows) * strips.rowBytes);
    }
    put(256, kLong, {static_cast<quint32>(picture.width())});
    put(257, kLong, {height});
    put(258, kShort, std::vector<quint32>(strips.samples, 8));  // bits of a sample
    put(259, kShort, {1});                                      // not compressed
    put(262, kShort, {2});                                      // red, green, blue
    put(273, kLong, places);
    put(277, kShort, {strips.samples});
    put(278, kLong, {strips.rows});
    put(279, kLong, lengths);
    put(284, kShort, {1});                           // the samples of a pixel side by side
    if (strips.samples == 4) put(338, kShort, {2});  // alpha, colours not multiplied by it
}

void PutCarried(const Metadata& metadata, const QImage& picture, TiffTags& tags) {
    const auto put = [&](quint16 tag, TiffType type, const QByteArray& value) {
        if (!value.isEmpty()) TiffTags::PutBytes(tags.main, tag, type, value);
    };
    put(700, kByte, XmpFor(metadata.xmp, picture.size()));
    put(33723, kByte, metadata.iptc);
    put(34675, kUndefined, SrgbProfile());
    for (const PictureText& text : metadata.texts)
        if (text.name == QLatin1String(kCommentName) && !TiffTags::Find(tags.main, kDescriptionTag))
            put(kDescriptionTag, kText, text.text.toUtf8() + '\0');
}

// Red, green, blue and, with 4 samples, alpha, of the rows from `top` to before `end`.
void FillStrip(const QImage& picture, int top, int end, quint32 samples, QByteArray& strip) {
    char* out = strip.data();
    for (int y = top; y < end; ++y) {
        const auto* pixel = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x, out += samples) {
            out[0] = static_cast<char>(qRed(pixel[x]));
            out[1] = static_cast<char>(qGreen(pixel[x]));
            out[2] = static_cast<char>(qBlue(pixel[x]));
            if (samples == 4) out[3] = static_cast<char>(qAlpha(pixel[x]));
        }
    }
}

}  // namespace

void EncodeTiff(const QImage& picture, const WriteOptions& options, QIODevice& device) {
    const auto write = [&](const QByteArray& bytes) { WriteAll(device, bytes.constData(), bytes.size()); };
    const Strips strips = StripsOf(picture);
    const quint32 pixelBytes = strips.rowBytes * static_cast<quint32>(picture.height());
    const quint32 tagsAt = kTiffHeadBytes + pixelBytes + pixelBytes % 2;
    TiffTags tags = ExifFor(options.metadata.exif, picture);
    Describe(picture, strips, tags);
    PutCarried(options.metadata, picture, tags);
    write(TiffHead(tags, tagsAt));
    QByteArray strip(strips.rowBytes * strips.rows, '\0');
    const auto rows = static_cast<int>(strips.rows);
    const WorkReport report;
    for (int top = 0; top < picture.height(); top += rows) {
        const int end = std::min(picture.height(), top + rows);
        report(end, picture.height());
        FillStrip(picture, top, end, strips.samples, strip);
        WriteAll(device, strip.constData(), qint64{end - top} * strips.rowBytes);
    }
    write(QByteArray(pixelBytes % 2, '\0') + LayOutTiffTags(tags, tagsAt));
}

}  // namespace kelu
