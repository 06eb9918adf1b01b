// BMP by the toolkit's writer, and what all writers share.
// SPDX-License-Identifier: MIT
#include <QImageWriter>
#include <QPainter>

#include "pictures/picture.h"
#include "pictures/picture_encoders.h"
#include "platform/error.h"

namespace kelu {
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

void EncodeBmp(const QImage& picture, const WriteOptions&, QIODevice& device) {
    QImageWriter writer(&device, "bmp");
    if (!writer.write(OverWhite(picture)))
        throw Error(kFileError, writer.errorString(), QStringLiteral("WritePicture"));
}

}  // namespace kelu
