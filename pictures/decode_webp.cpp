// WebP by the toolkit; of an animation the first frame.
// SPDX-License-Identifier: MIT
#include "pictures/bytes.h"
#include "pictures/exif.h"
#include "pictures/picture_decoders.h"

namespace kelu {

bool IsWebp(const QByteArray& head, qint64) { return head.startsWith("RIFF") && head.mid(8, 4) == "WEBP"; }

void CheckWebp(PictureInput& input) {
    if (8 + qint64{LittleEndian(input.Head(), 4, 4)} > input.Size()) ThrowCutShort();
}

DecodedPicture DecodeWebp(PictureInput& input) {
    constexpr qint64 kChunks = 12;
    DecodedPicture result = DecodeWithToolkit(input);
    const QByteArray& bytes = input.Bytes();
    for (qint64 at = kChunks; at + 8 <= bytes.size();) {
        const qint64 length = LittleEndian(bytes, at + 4, 4);
        const QByteArray name = bytes.mid(at, 4);
        if (name == "EXIF") {
            result.metadata.exif = bytes.mid(at + 8, length);
            if (result.metadata.exif.startsWith("Exif")) result.metadata.exif.remove(0, 6);
            const Exif exif = ReadExif(result.metadata.exif);
            result.metadata.orientation = exif.orientation;
            SetResolution(result.image, exif.dotsPerMeterX, exif.dotsPerMeterY);
        }
        if (name == "XMP ") result.metadata.xmp = bytes.mid(at + 8, length);
        at += 8 + length + length % 2;
    }
    return result;
}

}  // namespace kelu
