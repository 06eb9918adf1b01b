// Pictures by the toolkit's readers, into pooled memory where they let the caller bring it.
// SPDX-License-Identifier: MIT
#include <QColorSpace>
#include <QImageReader>
#include <QLoggingCategory>
#include <mutex>

#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

// Warnings about what a picture does not lose by, such as a wrong checksum of its date.
void SilenceToolkit() {
    static std::once_flag once;
    std::call_once(once, [] { QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false")); });
}

int ToExif(QImageIOHandler::Transformations transformation) {
    switch (transformation) {
        case QImageIOHandler::TransformationMirror:
            return 2;
        case QImageIOHandler::TransformationRotate180:
            return 3;
        case QImageIOHandler::TransformationFlip:
            return 4;
        case QImageIOHandler::TransformationFlipAndRotate90:
            return 5;
        case QImageIOHandler::TransformationRotate90:
            return 6;
        case QImageIOHandler::TransformationMirrorAndRotate90:
            return 7;
        case QImageIOHandler::TransformationRotate270:
            return 8;
        default:
            return 1;
    }
}

}  // namespace

DecodedPicture DecodeWithToolkit(PictureInput& input) {
    // Sizes are checked here, before the reader takes memory.
    QImageReader::setAllocationLimit(0);
    SilenceToolkit();
    QImageReader reader(&input.Device(), input.Format().toolkitName);
    reader.setAutoTransform(false);
    QSize size = reader.size();
    if (!size.isValid() && size.width() > 0) size.setHeight(-size.height());  // rows from top to bottom
    if (!size.isValid()) ThrowDamaged();
    CheckPictureSize(size.width(), size.height());
    DecodedPicture result;
    result.metadata.orientation = ToExif(reader.transformation());
    const QImage::Format native = reader.imageFormat();
    const bool direct = native == QImage::Format_RGB32 || native == QImage::Format_ARGB32;
    if (direct) result.image = MakePicture(size.width(), size.height(), native);
    if (!reader.read(&result.image)) {
        if (reader.error() == QImageReader::InvalidDataError) ThrowDamaged();
        throw Error(kInvalidPicture, PictureTexts::tr("The picture cannot be read: %1").arg(reader.errorString()));
    }
    const QColorSpace space = result.image.colorSpace();
    if (space.isValid() && space != QColorSpace(QColorSpace::SRgb)) result.metadata.profile = space.iccProfile();
    result.image.setColorSpace(QColorSpace());
    result.image = ToPictureFormat(result.image);
    return result;
}

}  // namespace kelu
