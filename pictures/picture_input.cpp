// The file that a picture is read from.
// SPDX-License-Identifier: MIT
#include "pictures/picture_input.h"

#include "pictures/picture_format.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"
#include "platform/units.h"

namespace kelu {

QIODevice& PictureInput::Device() {
    if (!device_.seek(0)) throw Error(kFileError, device_.errorString());
    return device_;
}

QByteArray PictureInput::Head() { return Device().peek(kHeadBytes); }

const QByteArray& PictureInput::Bytes() {
    if (bytes_.isNull()) {
        bytes_ = Device().readAll();
        if (bytes_.size() != device_.size()) throw Error(kFileError, device_.errorString());
    }
    return bytes_;
}

void ThrowCutShort() { throw Error(kEndOfFile, PictureTexts::tr("The picture file is cut short")); }

void SetResolution(QImage& image, double x, double y) {
    constexpr double kMost = 1e7;
    if (!(x >= 1 && y >= 1 && x < kMost && y < kMost)) return;
    image.setDotsPerMeterX(RoundToEven(x));
    image.setDotsPerMeterY(RoundToEven(y));
}

void ThrowDamaged() { throw Error(kInvalidPicture, PictureTexts::tr("The picture file is damaged")); }

void ThrowNoMemory() { throw Error(kOutOfMemory, PictureTexts::tr("Not enough memory for this picture")); }

}  // namespace kelu
