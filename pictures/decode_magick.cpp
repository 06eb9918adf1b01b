// The second reader: ImageMagick, called only after our own checks, with its coder named and limits set.
// SPDX-License-Identifier: MIT
#include <Magick++.h>

#include <cmath>
#include <mutex>

#include "pictures/color_profile.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

void StartMagick() {
    static std::once_flag once;
    std::call_once(once, [] {
        Magick::InitializeMagick(nullptr);
        // Files are checked against these before any pixel is decoded; the system's policy may be stricter.
        Magick::ResourceLimits::width(1 << 16);
        Magick::ResourceLimits::height(1 << 16);
        Magick::ResourceLimits::area(static_cast<MagickCore::MagickSizeType>(MaxPicturePixels()));
        Magick::ResourceLimits::thread(2);
    });
}

// The question has another name from version 7 of the library on.
bool HasAlpha(const Magick::Image& image) {
#if MagickLibVersion >= 0x700
    return image.alpha();
#else
    return image.matte();
#endif
}

void TakeResolution(const Magick::Image& image, QImage& picture) {
    const double perMeter = image.resolutionUnits() == MagickCore::PixelsPerCentimeterResolution ? 100 : 1 / 0.0254;
    SetResolution(picture, image.xResolution() * perMeter, image.yResolution() * perMeter);
}

// Puts the alpha of the picture into pixels that have none.
void AddAlpha(Magick::Image& image, QImage& picture) {
    QImage alpha(picture.width(), picture.height(), QImage::Format_Alpha8);
    for (int y = 0; y < picture.height(); ++y) {
        image.write(0, y, image.columns(), 1, "A", Magick::CharPixel, alpha.scanLine(y));
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = (row[x] & 0xffffffu) | quint32{alpha.constScanLine(y)[x]} << 24;
    }
}

DecodedPicture Read(const QByteArray& bytes, const char* coder) {
    StartMagick();
    const Magick::Blob blob(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    Magick::Image image;
    image.quiet(true);
    image.magick(coder);
    image.ping(blob);
    CheckPictureSize(static_cast<qint64>(image.columns()), static_cast<qint64>(image.rows()));
    image.magick(coder);
    image.read(blob);
    DecodedPicture result;
    const bool transparent = HasAlpha(image);
    const auto width = static_cast<int>(image.columns());
    const auto height = static_cast<int>(image.rows());
    const Magick::Blob profile = image.iccColorProfile();
    result.metadata.profile =
        QByteArray(static_cast<const char*>(profile.data()), static_cast<qsizetype>(profile.length()));
    result.metadata.orientation = static_cast<int>(image.orientation());
    result.image = MakePicture(width, height, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.colorSpace() == Magick::CMYKColorspace) {
        image.write(0, 0, image.columns(), image.rows(), "CMYK", Magick::CharPixel, result.image.bits());
        ConvertCmykToSrgb(result.image, result.metadata.profile, false);
        result.metadata.profile.clear();
        if (transparent) AddAlpha(image, result.image);
    } else {
        // What the library exports as the alpha of an opaque picture is not defined.
        image.write(0, 0, image.columns(), image.rows(), transparent ? "BGRA" : "BGRP", Magick::CharPixel,
                    result.image.bits());
        if (!transparent) MakeOpaque(result.image);
    }
    TakeResolution(image, result.image);
    return result;
}

}  // namespace

DecodedPicture DecodeWithMagick(const QByteArray& bytes, const char* coder) {
    try {
        return Read(bytes, coder);
    } catch (const Magick::Error& error) {
        const QString reason = QString::fromLocal8Bit(error.what());
        const bool resources = dynamic_cast<const Magick::ErrorResourceLimit*>(&error) != nullptr ||
                               dynamic_cast<const Magick::ErrorCache*>(&error) != nullptr;
        if (resources) ThrowNoMemory();
        throw Error(kInvalidPicture,
                    PictureTexts::tr("The picture cannot be read: %1").arg(reason.section('\n', 0, 0)));
    } catch (const Magick::Exception&) {
        ThrowDamaged();
    }
}

DecodedPicture DecodeWithMagick(PictureInput& input) {
    return DecodeWithMagick(input.Bytes(), input.Format().magickName);
}

}  // namespace kelu
