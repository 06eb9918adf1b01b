// Pictures on disk.
// SPDX-License-Identifier: MIT
#include "document/picture_file.h"

#include <QImageReader>
#include <QImageWriter>

#include "document/picture.h"
#include "platform/error.h"

namespace kelu {

QImage ReadPicture(const QString& path) {
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) throw Error(kInvalidPicture, reader.errorString(), QStringLiteral("ReadPicture"));
    return ToPictureFormat(image);
}

QImage ReadThumbnail(const QString& path, const QSize& box) {
    const QImage picture = ReadPicture(path);
    return ScalePicture(picture, picture.size().scaled(box, Qt::KeepAspectRatio).boundedTo(picture.size()));
}

void WritePicture(const QImage& picture, const QString& path) {
    QImageWriter writer(path);
    if (!writer.write(picture)) throw Error(kFileError, writer.errorString(), QStringLiteral("WritePicture"));
}

bool CanWritePicture(const QString& path) { return path.contains(QLatin1Char('.')); }

}  // namespace kelu
