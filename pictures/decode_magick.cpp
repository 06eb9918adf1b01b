// The second reader: ImageMagick, called only after our own checks, with its coder named and limits set.
// SPDX-License-Identifier: MIT
#include <Magick++.h>

#include <mutex>

#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
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

QImage Read(const QByteArray& bytes, const char* coder) {
    StartMagick();
    const Magick::Blob blob(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    Magick::Image image;
    image.quiet(true);
    image.magick(coder);
    image.ping(blob);
    CheckPictureSize(static_cast<qint64>(image.columns()), static_cast<qint64>(image.rows()));
    image.magick(coder);
    image.read(blob);
    image.autoOrient();
    if (image.colorSpace() == Magick::CMYKColorspace) image.colorSpace(Magick::sRGBColorspace);
    const bool transparent = HasAlpha(image);
    const auto width = static_cast<int>(image.columns());
    const auto height = static_cast<int>(image.rows());
    QImage result = MakePicture(width, height, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    image.write(0, 0, image.columns(), image.rows(), "BGRA", Magick::CharPixel, result.bits());
    if (!transparent) {
        // What the library exports as the alpha of an opaque picture is not defined.
        for (int y = 0; y < height; ++y) {
            auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
            for (int x = 0; x < width; ++x) row[x] |= 0xff000000u;
        }
    }
    const double perMeter = image.resolutionUnits() == MagickCore::PixelsPerCentimeterResolution ? 100 : 1 / 0.0254;
    if (image.xResolution() >= 1 && image.yResolution() >= 1 && image.xResolution() < 1e5 &&
        image.yResolution() < 1e5) {
        result.setDotsPerMeterX(qRound(image.xResolution() * perMeter));
        result.setDotsPerMeterY(qRound(image.yResolution() * perMeter));
    }
    return result;
}

}  // namespace

DecodedPicture DecodeWithMagick(PictureInput& input) {
    try {
        return {Read(input.Bytes(), input.Format().magickName)};
    } catch (const Magick::Error& error) {
        const QString reason = QString::fromLocal8Bit(error.what());
        const bool resources = dynamic_cast<const Magick::ErrorResourceLimit*>(&error) != nullptr ||
                               dynamic_cast<const Magick::ErrorCache*>(&error) != nullptr;
        if (resources) ThrowNoMemory();
        throw Error(kInvalidPicture, QStringLiteral("The picture cannot be read: %1").arg(reason.section('\n', 0, 0)));
    } catch (const Magick::Exception&) {
        ThrowDamaged();
    }
}

}  // namespace kelu
