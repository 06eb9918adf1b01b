// WebP by the toolkit's writer, with what goes along put into the file that it made.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QImageWriter>
#include <new>

#include "pictures/bytes.h"
#include "pictures/exif.h"
#include "pictures/picture_encoders.h"
#include "pictures/picture_texts.h"
#include "pictures/xmp.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kLongestSide = 16383;
constexpr qsizetype kChunksAt = 12;  // behind "RIFF", the length, "WEBP"
constexpr char kHasXmp = 4, kHasExif = 8, kHasAlpha = 16;

QByteArray Number(qint64 value, int bytes) {
    QByteArray number(bytes, '\0');
    for (int i = 0; i < bytes; ++i) number[i] = static_cast<char>(value >> (8 * i));
    return number;
}

QByteArray Chunk(const char* name, const QByteArray& data) {
    if (data.isEmpty()) return {};
    return name + Number(data.size(), 4) + data + QByteArray(data.size() % 2, '\0');
}

// Files with more than the picture begin with a chunk that tells what there is.
QByteArray WithChunks(const QByteArray& file, const QImage& picture, const QByteArray& exif, const QByteArray& xmp) {
    QByteArray chunks = file.mid(kChunksAt);
    QByteArray head;
    if (chunks.startsWith("VP8X")) {
        const qsizetype length = 8 + static_cast<qsizetype>(LittleEndian(chunks, 4, 4));
        head = chunks.mid(8, length - 8);
        chunks.remove(0, length);
    } else {
        head = Number(picture.hasAlphaChannel() ? kHasAlpha : 0, 4) + Number(picture.width() - 1, 3) +
               Number(picture.height() - 1, 3);
    }
    head[0] = static_cast<char>(head[0] | (exif.isEmpty() ? 0 : kHasExif) | (xmp.isEmpty() ? 0 : kHasXmp));
    chunks = "WEBP" + Chunk("VP8X", head) + chunks + Chunk("EXIF", exif) + Chunk("XMP ", xmp);
    return "RIFF" + Number(chunks.size(), 4) + chunks;
}

}  // namespace

void EncodeWebp(const QImage& picture, const WriteOptions& options, QIODevice& device) {
    if (picture.width() > kLongestSide || picture.height() > kLongestSide)
        throw Error(kFileError, PictureTexts::tr("The picture is too large for a WebP file"),
                    QStringLiteral("WritePicture"));
    // The writer takes no notice of a full disk, so the file is made in memory first.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "webp");
    writer.setQuality(options.quality);
    if (!writer.write(picture)) throw std::bad_alloc();  // nothing else is left to fail; it gives no reason
    const QByteArray exif = ExifBlockFor(options.metadata.exif, picture, INT_MAX);
    const QByteArray xmp = XmpFor(options.metadata.xmp, picture.size());
    if (!exif.isEmpty() || !xmp.isEmpty()) bytes = WithChunks(bytes, picture, exif, xmp);
    WriteAll(device, bytes.constData(), bytes.size());
}

}  // namespace kelu
