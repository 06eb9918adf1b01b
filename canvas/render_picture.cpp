// SPDX-License-Identifier: MIT
#include "canvas/render_picture.h"

#include <new>

#include "pictures/picture.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {

QImage RenderPicture(const QImage& picture, const Kernel& kernel, const engine::Run& run) {
    if (picture.isNull()) return {};
    const QImage source = ToPictureFormat(picture);
    QImage target = MakePicture(source.width(), source.height(), source.format());
    try {
        kernel({source.constBits(), source.width(), source.height(), source.bytesPerLine()},
               {target.bits(), target.width(), target.height(), target.bytesPerLine()}, run);
    } catch (const std::bad_alloc&) {
        throw Error(kOutOfMemory, PictureTexts::tr("Not enough memory for this effect"));
    }
    target.setDotsPerMeterX(source.dotsPerMeterX());
    target.setDotsPerMeterY(source.dotsPerMeterY());
    return target;
}

}  // namespace kelu
