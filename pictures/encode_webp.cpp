// WebP by the toolkit's writer.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QImageWriter>

#include "pictures/picture_encoders.h"
#include "platform/error.h"

namespace kelu {

void EncodeWebp(const QImage& picture, const WriteOptions& options, QIODevice& device) {
    // The writer takes no notice of a full disk, so the file is made in memory first.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "webp");
    writer.setQuality(options.quality);
    if (!writer.write(picture)) throw Error(kFileError, writer.errorString(), QStringLiteral("WritePicture"));
    WriteAll(device, bytes.constData(), bytes.size());
}

}  // namespace kelu
