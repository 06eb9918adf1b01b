// bmp, png and tif by the toolkit's readers, into pooled memory where they let the caller bring it.
// SPDX-License-Identifier: MIT
#include <tiffio.h>
#include <zlib.h>

#include <QColorSpace>
#include <QImageReader>
#include <QLoggingCategory>
#include <algorithm>
#include <cmath>
#include <mutex>

#include "pictures/exif.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "platform/error.h"

namespace kelu {
namespace {

// Whether the checksum behind the data holds; `device` stands at the data. The library would tell a wrong one on
// standard error, where a failure of ours is the only line.
bool ChecksumHolds(QIODevice& device, const QByteArray& name, qint64 length) {
    constexpr qint64 kPiece = 1 << 16;
    uLong sum = crc32(0, reinterpret_cast<const Bytef*>(name.constData()), 4);
    for (qint64 left = length; left > 0;) {
        const QByteArray piece = device.read(std::min(left, kPiece));
        if (piece.isEmpty()) return false;
        sum = crc32(sum, reinterpret_cast<const Bytef*>(piece.constData()), static_cast<uInt>(piece.size()));
        left -= piece.size();
    }
    return BigEndian(device.read(4), 0, 4) == static_cast<quint32>(sum);
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

struct PngFacts {
    int orientation = 1;
    bool hasProfile = false;
};

// Walks the chunks of a PNG: its orientation stands in a chunk on either side of the pixels.
PngFacts ReadPngFacts(QIODevice& device) {
    constexpr qint64 kSignature = 8;
    constexpr qint64 kFrame = 12;  // length, name and checksum around the data
    PngFacts facts;
    bool hasPixels = false;
    for (qint64 at = kSignature;;) {
        if (!device.seek(at)) break;
        const QByteArray head = device.read(8);
        if (head.size() < 8) ThrowCutShort();
        const qint64 length = BigEndian(head, 0, 4);
        if (at + kFrame + length > device.size()) ThrowCutShort();
        const QByteArray name = head.mid(4);
        if (!std::all_of(name.begin(), name.end(), IsLetter)) ThrowDamaged();
        const bool critical = name[0] < 'a';
        if (critical && !ChecksumHolds(device, name, length)) ThrowDamaged();
        if (name == "IEND") break;
        if (name == "IHDR") {
            device.seek(at + 8);
            const QByteArray sides = device.read(8);
            CheckPictureSize(BigEndian(sides, 0, 4), BigEndian(sides, 4, 4));
        }
        if (name == "IDAT") hasPixels = true;
        if (name == "eXIf") facts.orientation = ReadExif(device.read(length)).orientation;
        if (name == "iCCP") facts.hasProfile = true;
        at += kFrame + length;
    }
    if (!hasPixels) ThrowDamaged();
    device.seek(0);
    return facts;
}

// The library below tells its troubles on standard error; a failure is told once, by us.
void SilenceTiff() {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
}

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

const char* QtName(PictureFormat format) {
    switch (format) {
        case PictureFormat::Bmp:
            return "bmp";
        case PictureFormat::Png:
            return "png";
        default:
            return "tiff";
    }
}

}  // namespace

DecodedPicture DecodeWithQt(QIODevice& device, PictureFormat format) {
    // Sizes are checked here, before the reader takes memory.
    QImageReader::setAllocationLimit(0);
    SilenceToolkit();
    DecodedPicture result;
    PngFacts png;
    if (format == PictureFormat::Png) png = ReadPngFacts(device);
    result.orientation = png.orientation;
    if (format == PictureFormat::Tiff) {
        SilenceTiff();
        CheckTiffLength(device);
    }
    QImageReader reader(&device, QtName(format));
    reader.setAutoTransform(false);
    const QSize size = reader.size();
    if (!size.isValid()) ThrowDamaged();
    CheckPictureSize(size.width(), size.height());
    if (format == PictureFormat::Tiff) result.orientation = ToExif(reader.transformation());

    const QImage::Format native = reader.imageFormat();
    const bool direct = native == QImage::Format_RGB32 || native == QImage::Format_ARGB32;
    if (direct) result.image = MakePicture(size.width(), size.height(), native);
    if (!reader.read(&result.image)) {
        if (reader.error() == QImageReader::InvalidDataError) ThrowDamaged();
        throw Error(kInvalidPicture, QStringLiteral("The picture cannot be read: %1").arg(reader.errorString()));
    }
    const QColorSpace space = result.image.colorSpace();
    // A PNG that tells a gamma and no profile is made for a screen like any other.
    const bool plainGamma = format == PictureFormat::Png && !png.hasProfile && std::abs(space.gamma() - 2.2f) < 0.05f;
    if (space.isValid() && space != QColorSpace(QColorSpace::SRgb) && !plainGamma) result.profile = space.iccProfile();
    result.image.setColorSpace(QColorSpace());
    result.image = ToPictureFormat(result.image);
    return result;
}

}  // namespace kelu
