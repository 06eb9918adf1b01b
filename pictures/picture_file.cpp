// Pictures on disk: which reader or writer does the work, and what all of them have in common.
// SPDX-License-Identifier: MIT
#include "pictures/picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <new>

#include "pictures/color_profile.h"
#include "pictures/picture.h"
#include "pictures/picture_format.h"
#include "pictures/picture_texts.h"
#include "platform/atomic_file.h"
#include "platform/error.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

// More than the largest picture takes uncompressed.
constexpr qint64 kLongestFile = qint64{3} << 30;

QString Named(const QString& path, const QString& reason) {
    return QStringLiteral("%1: %2").arg(QFileInfo(path).fileName(), reason);
}

// A file that tells how far it was read, and ends when that is no longer wanted.
class ReportingFile : public QFile {
 public:
    using QFile::QFile;

 protected:
    qint64 readData(char* bytes, qint64 count) override {
        if (report_.Cancelled()) return -1;
        const qint64 got = QFile::readData(bytes, count);
        report_.Tell(pos(), size());
        return got;
    }

 private:
    WorkReport report_;
};

// Opening a pipe or a device could wait for ever.
void CheckIsFile(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir()) throw Error(kFileError, PictureTexts::tr("This is a folder"));
    if (info.exists() && !info.isFile()) throw Error(kFileError, PictureTexts::tr("This is not a regular file"));
}

DecodedPicture Decode(QFile& file, const QSize& box) {
    const PictureFormat* format = TellPictureFormat(file.peek(kHeadBytes), file.size());
    if (!format) throw Error(kInvalidPicture, PictureTexts::tr("This is not a picture of a known format"));
    if (file.size() > kLongestFile) throw Error(kOutOfMemory, PictureTexts::tr("The picture file is too large"));
    PictureInput input(file, *format, box);
    if (format->check) format->check(input);
    for (const auto decode : format->decoders) {
        if (!decode) break;
        DecodedPicture decoded = decode(input);
        if (decoded.image.isNull()) continue;
        if (format->describe && box.isEmpty()) format->describe(input, decoded.metadata);
        return decoded;
    }
    throw Error(kInvalidPicture,
                PictureTexts::tr("This kind of %1 file is not known").arg(QLatin1String(format->name)));
}

Photograph Read(const QString& path, const QSize& box) {
    try {
        ReportingFile file(path);
        CheckIsFile(path);
        if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, file.errorString());
        DecodedPicture decoded = Decode(file, box);
        ConvertToSrgb(decoded.image, decoded.metadata.profile);
        QImage picture = Orient(decoded.image, decoded.metadata.orientation);
        decoded.image = QImage();
        if (!box.isEmpty()) {
            QSize whole = decoded.fileSize.isEmpty() ? picture.size() : decoded.fileSize;
            if (!decoded.fileSize.isEmpty() && decoded.metadata.orientation >= 5) whole.transpose();
            const QSize shrunk = whole.scaled(box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
            if (shrunk.width() < whole.width() || shrunk.height() < whole.height())
                picture = ScalePicture(picture, shrunk);
        }
        decoded.metadata.orientation = 1;
        decoded.metadata.profile.clear();
        return {picture, decoded.metadata};
    } catch (const Error& error) {
        throw Error(error.Number(), Named(path, error.Description()), QStringLiteral("ReadPicture"));
    } catch (const std::bad_alloc&) {
        throw Error(kOutOfMemory, Named(path, PictureTexts::tr("Not enough memory for this picture")),
                    QStringLiteral("ReadPicture"));
    }
}

}  // namespace

QImage ReadPicture(const QString& path) { return Read(path, QSize()).picture; }

Photograph ReadPhotograph(const QString& path) { return Read(path, QSize()); }

QImage ReadThumbnail(const QString& path, const QSize& box) { return Read(path, box).picture; }

void WritePicture(const QImage& picture, const QString& path, const WriteOptions& options) {
    const QString source = QStringLiteral("WritePicture");
    const PictureFormat* format = FormatToWrite(path);
    if (!format)
        throw Error(kFileError,
                    Named(path, PictureTexts::tr("The extension tells no picture format that can be written")), source);
    if (picture.isNull()) throw Error(kInvalidPicture, Named(path, PictureTexts::tr("There is no picture")), source);
    if (QFileInfo(path).isDir()) throw Error(kFileError, Named(path, PictureTexts::tr("This is a folder")), source);
    try {
        AtomicFile(path).FillAndCommit([&](QFile& file) { format->encode(ToPictureFormat(picture), options, file); });
    } catch (const std::bad_alloc&) {
        throw Error(kOutOfMemory, Named(path, PictureTexts::tr("Not enough memory to write this picture")), source);
    }
}

bool CanWritePicture(const QString& path) { return FormatToWrite(path) != nullptr; }

}  // namespace kelu
