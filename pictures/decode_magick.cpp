// pcx, psd and tga by ImageMagick, with its coder named and limits set, after our own checks; and the two kinds of
// files that it gets wrong: black and white PCX and indexed PSD.
// SPDX-License-Identifier: MIT
#include <Magick++.h>

#include <algorithm>
#include <array>
#include <mutex>

#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kPsdIndexed = 2;

void StartMagick() {
    static std::once_flag once;
    std::call_once(once, [] {
        Magick::InitializeMagick(nullptr);
        // Files are checked against these before any pixel is decoded; the system's policy may be stricter.
        Magick::ResourceLimits::width(1 << 16);
        Magick::ResourceLimits::height(1 << 16);
        Magick::ResourceLimits::area(static_cast<MagickCore::MagickSizeType>(kMaxPicturePixels));
        Magick::ResourceLimits::thread(2);
    });
}

const char* CoderName(PictureFormat format) {
    switch (format) {
        case PictureFormat::Pcx:
            return "PCX";
        case PictureFormat::Psd:
            return "PSD";
        default:
            return "TGA";
    }
}

bool IsBlackAndWhitePcx(const QByteArray& bytes) { return bytes[3] == 1 && bytes[65] == 1; }

// One bit a pixel, colours from the first two palette entries when they differ, else black and white.
QImage DecodeBlackAndWhitePcx(const QByteArray& bytes) {
    const int width = static_cast<int>(LittleEndian(bytes, 8, 2) - LittleEndian(bytes, 4, 2)) + 1;
    const int height = static_cast<int>(LittleEndian(bytes, 10, 2) - LittleEndian(bytes, 6, 2)) + 1;
    const auto lineBytes = static_cast<int>(LittleEndian(bytes, 66, 2));
    if (lineBytes * 8 < width) ThrowDamaged();
    std::array<QRgb, 2> palette{0xff000000u | BigEndian(bytes, 16, 3), 0xff000000u | BigEndian(bytes, 19, 3)};
    if (palette[0] == palette[1]) palette = {0xff000000u, 0xffffffffu};
    QImage image = MakePicture(width, height, QImage::Format_RGB32);
    qint64 at = 128;
    int run = 0;
    quint8 value = 0;
    const bool packed = bytes[2] == 1;
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int i = 0; i < lineBytes; ++i, --run) {
            if (run <= 0) {
                value = static_cast<quint8>(bytes[at++]);
                run = 1;
                if (packed && value >= 0xc0) {
                    run = value & 0x3f;
                    value = static_cast<quint8>(bytes[at++]);
                    if (run == 0) ThrowDamaged();
                }
            }
            for (int bit = 0; bit < 8 && i * 8 + bit < width; ++bit)
                row[i * 8 + bit] = palette[(value >> (7 - bit)) & 1];
        }
    }
    return image;
}

bool IsIndexedPsd(const QByteArray& bytes) {
    return BigEndian(bytes, 24, 2) == kPsdIndexed && BigEndian(bytes, 22, 2) == 8 && BigEndian(bytes, 12, 2) == 1;
}

// A PackBits row; its length was checked with the whole file's.
void UnpackRow(const QByteArray& bytes, qint64 at, qint64 end, QByteArray& row) {
    qsizetype filled = 0;
    while (at < end && filled < row.size()) {
        const auto control = static_cast<qint8>(bytes[at++]);
        if (control == -128) continue;
        const bool repeat = control < 0;
        const qsizetype count = std::min<qsizetype>(repeat ? 1 - control : control + 1, row.size() - filled);
        if (at + (repeat ? 1 : count) > end) ThrowDamaged();
        for (qsizetype i = 0; i < count; ++i) row[filled++] = bytes[repeat ? at : at + i];
        at += repeat ? 1 : count;
    }
    if (filled < row.size()) ThrowDamaged();
}

QImage DecodeIndexedPsd(const QByteArray& bytes) {
    const auto height = static_cast<int>(BigEndian(bytes, 14, 4));
    const auto width = static_cast<int>(BigEndian(bytes, 18, 4));
    constexpr qint64 kPalette = 30;  // all reds, all greens, all blues
    if (BigEndian(bytes, 26, 4) < 768) ThrowDamaged();
    qint64 at = 26;
    for (int section = 0; section < 3; ++section) at += 4 + qint64{BigEndian(bytes, at, 4)};
    const quint32 compression = BigEndian(bytes, at, 2);
    if (compression > 1) throw Error(kInvalidPicture, QStringLiteral("This kind of compression is not known"));
    const bool packed = compression == 1;
    qint64 lengths = at + 2;
    at = lengths + (packed ? qint64{height} * 2 : 0);
    QImage image = MakePicture(width, height, QImage::Format_RGB32);
    QByteArray row(width, Qt::Uninitialized);
    for (int y = 0; y < height; ++y, lengths += 2) {
        const qint64 length = packed ? qint64{BigEndian(bytes, lengths, 2)} : width;
        if (packed)
            UnpackRow(bytes, at, at + length, row);
        else
            row = bytes.mid(at, width);
        at += length;
        auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const qint64 entry = kPalette + static_cast<quint8>(row[x]);
            out[x] = qRgb(static_cast<quint8>(bytes[entry]), static_cast<quint8>(bytes[entry + 256]),
                          static_cast<quint8>(bytes[entry + 512]));
        }
    }
    return image;
}

// The question has another name from version 7 of the library on.
bool HasAlpha(const Magick::Image& image) {
#if MagickLibVersion >= 0x700
    return image.alpha();
#else
    return image.matte();
#endif
}

QImage ReadByMagick(const QByteArray& bytes, PictureFormat format) {
    StartMagick();
    const Magick::Blob blob(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    Magick::Image image;
    image.quiet(true);
    image.magick(CoderName(format));
    image.ping(blob);
    CheckPictureSize(static_cast<qint64>(image.columns()), static_cast<qint64>(image.rows()));
    image.magick(CoderName(format));
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

DecodedPicture DecodeWithMagick(const QByteArray& bytes, PictureFormat format) {
    if (format == PictureFormat::Pcx) CheckPcxLength(bytes);
    if (format == PictureFormat::Psd) CheckPsdLength(bytes);
    if (format == PictureFormat::Tga) CheckTgaLength(bytes);
    if (format == PictureFormat::Pcx && IsBlackAndWhitePcx(bytes)) return {DecodeBlackAndWhitePcx(bytes), {}, 1};
    if (format == PictureFormat::Psd && IsIndexedPsd(bytes)) return {DecodeIndexedPsd(bytes), {}, 1};
    try {
        return {ReadByMagick(bytes, format), {}, 1};
    } catch (const Magick::Error& error) {
        const QString reason = QString::fromLocal8Bit(error.what());
        const bool resources = dynamic_cast<const Magick::ErrorResourceLimit*>(&error) != nullptr ||
                               dynamic_cast<const Magick::ErrorCache*>(&error) != nullptr;
        if (resources) throw Error(kOutOfMemory, QStringLiteral("Not enough memory for this picture"));
        throw Error(kInvalidPicture, QStringLiteral("The picture cannot be read: %1").arg(reason.section('\n', 0, 0)));
    } catch (const Magick::Exception&) {
        ThrowDamaged();
    }
}

}  // namespace kelu
