// Pictures on disk: which reader or writer does the work, and what all of them have in common.
// SPDX-License-Identifier: MIT
#include "pictures/picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <new>

#include "pictures/color_profile.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/picture_encoders.h"
#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr qint64 kHeadBytes = 128;
// More than the largest picture takes uncompressed.
constexpr qint64 kLongestFile = qint64{3} << 30;

QString Named(const QString& path, const QString& reason) {
    return QStringLiteral("%1: %2").arg(QFileInfo(path).fileName(), reason);
}

DecodedPicture Decode(QFile& file, const QSize& box) {
    const QByteArray head = file.peek(kHeadBytes);
    const PictureFormat format = TellPictureFormat(head, file.size());
    if (format == PictureFormat::Unknown)
        throw Error(kInvalidPicture, QStringLiteral("This is not a picture of a known format"));
    if (file.size() > kLongestFile) throw Error(kOutOfMemory, QStringLiteral("The picture file is too large"));
    switch (format) {
        case PictureFormat::Bmp:
            CheckBmpLength(head, file.size());
            [[fallthrough]];
        case PictureFormat::Png:
        case PictureFormat::Tiff:
            return DecodeWithQt(file, format);
        default:
            break;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) throw Error(kFileError, file.errorString());
    if (format == PictureFormat::Jpeg) return DecodeJpeg(bytes, box);
    if (format == PictureFormat::Gif) return DecodeGif(bytes);
    if (bytes.size() < kHeadBytes && format == PictureFormat::Pcx) ThrowCutShort();
    return DecodeWithMagick(bytes, format);
}

QImage Read(const QString& path, const QSize& box) {
    try {
        QFile file(path);
        if (QFileInfo(path).isDir()) throw Error(kFileError, QStringLiteral("This is a folder"));
        if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, file.errorString());
        DecodedPicture decoded = Decode(file, box);
        ConvertToSrgb(decoded.image, decoded.profile);
        QImage picture = Orient(decoded.image, decoded.orientation);
        decoded.image = QImage();
        if (!box.isEmpty()) {
            QSize whole = decoded.fileSize.isEmpty() ? picture.size() : decoded.fileSize;
            if (!decoded.fileSize.isEmpty() && decoded.orientation >= 5) whole.transpose();
            const QSize shrunk = whole.scaled(box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
            if (shrunk.width() < whole.width()) picture = ScalePicture(picture, shrunk);
        }
        return picture;
    } catch (const Error& error) {
        throw Error(error.Number(), Named(path, error.Description()), QStringLiteral("ReadPicture"));
    } catch (const std::bad_alloc&) {
        throw Error(kOutOfMemory, Named(path, QStringLiteral("Not enough memory for this picture")),
                    QStringLiteral("ReadPicture"));
    }
}

using Encoder = void (*)(const QImage&, QIODevice&);

Encoder EncoderFor(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == QLatin1String("bmp")) return &EncodeBmp;
    if (extension == QLatin1String("gif")) return &EncodeGif;
    if (extension == QLatin1String("jpg") || extension == QLatin1String("jpeg")) return &EncodeJpeg;
    if (extension == QLatin1String("png")) return &EncodePng;
    if (extension == QLatin1String("tif") || extension == QLatin1String("tiff")) return &EncodeTiff;
    return nullptr;
}

}  // namespace

QImage ReadPicture(const QString& path) { return Read(path, QSize()); }

QImage ReadThumbnail(const QString& path, const QSize& box) { return Read(path, box); }

void WritePicture(const QImage& picture, const QString& path) {
    const QString source = QStringLiteral("WritePicture");
    const Encoder encode = EncoderFor(path);
    if (!encode)
        throw Error(kFileError,
                    Named(path, QStringLiteral("The extension tells no picture format that can be written")), source);
    if (picture.isNull()) throw Error(kInvalidPicture, Named(path, QStringLiteral("There is no picture")), source);
    if (QFileInfo(path).isDir()) throw Error(kFileError, Named(path, QStringLiteral("This is a folder")), source);
    try {
        AtomicFile(path).FillAndCommit([&](QFile& file) { encode(ToPictureFormat(picture), file); });
    } catch (const std::bad_alloc&) {
        throw Error(kOutOfMemory, Named(path, QStringLiteral("Not enough memory to write this picture")), source);
    }
}

bool CanWritePicture(const QString& path) { return EncoderFor(path) != nullptr; }

}  // namespace kelu
