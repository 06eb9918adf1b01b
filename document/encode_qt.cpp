// bmp and tif by the toolkit's writers, and what all writers share.
// SPDX-License-Identifier: MIT
#include <QImageWriter>
#include <QPainter>

#include "document/picture.h"
#include "document/picture_encoders.h"
#include "platform/error.h"

namespace kelu {
namespace {

void EncodeByQt(const QImage& picture, QIODevice& device, const char* format) {
    QImageWriter writer(&device, format);
    if (!writer.write(picture)) throw Error(kFileError, writer.errorString(), QStringLiteral("WritePicture"));
}

}  // namespace

QImage OverWhite(const QImage& picture) {
    if (!picture.hasAlphaChannel()) return picture;
    QImage opaque = MakePicture(picture.width(), picture.height(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(0, 0, picture);
    opaque.setDotsPerMeterX(picture.dotsPerMeterX());
    opaque.setDotsPerMeterY(picture.dotsPerMeterY());
    return opaque;
}

void WriteAll(QIODevice& device, const char* bytes, qint64 count) {
    if (device.write(bytes, count) != count)
        throw Error(kFileError, device.errorString(), QStringLiteral("WritePicture"));
}

void EncodeBmp(const QImage& picture, QIODevice& device) { EncodeByQt(OverWhite(picture), device, "bmp"); }

void EncodeTiff(const QImage& picture, QIODevice& device) { EncodeByQt(picture, device, "tiff"); }

}  // namespace kelu
