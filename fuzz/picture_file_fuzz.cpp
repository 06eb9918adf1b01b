// Feeds any bytes to the picture readers, as a whole picture and as a thumbnail, and what now and then told to the
// writers. Each must end soon with a picture or an Error, without a crash; what was written must be read. Built for
// libFuzzer; started on small files of one format it stays with that format's reader.
// SPDX-License-Identifier: MIT
#include <zlib.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "pictures/picture_format.h"
#include "platform/error.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

QString SharedPath() {
    static QTemporaryDir folder(QDir(QStringLiteral("/dev/shm")).exists()
                                    ? QStringLiteral("/dev/shm/kelu-fuzz-XXXXXX")
                                    : QDir::tempPath() + QStringLiteral("/kelu-fuzz-XXXXXX"));
    return folder.filePath(QStringLiteral("picture"));
}

QByteArray HeadOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(std::min<std::size_t>(size, kelu::kHeadBytes))};
}

const kelu::PictureFormat* FormatOf(const std::uint8_t* data, std::size_t size) {
    return kelu::TellPictureFormat(HeadOf(data, size), static_cast<qint64>(size));
}

/// Tells at the end how many files each reader was given.
struct Readers {
    std::map<const kelu::PictureFormat*, std::size_t> given;
    ~Readers() {
        for (const auto& [format, files] : given)
            std::fprintf(stderr, "reader: %s %zu\n", format ? format->name : "none", files);
    }
} readers;

void WriteAndReadAgain(const kelu::Photograph& read) {
    kelu::WriteOptions options;
    options.metadata = read.metadata;
    if (read.picture.width() >= 0x4000 || read.picture.height() >= 0x4000) return;  // the most of WebP
    for (const char* extension : {".jpg", ".png", ".tif", ".webp"}) {
        const QString written = SharedPath() + QLatin1String(extension);
        kelu::WritePicture(read.picture, written, options);
        if (kelu::ReadPicture(written).size() != read.picture.size()) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    // Keeps one round short: larger pictures differ in nothing but size.
    kelu::SetMaxPicturePixels(1 << 14);
    return 0;
}

/// Makes the checksums of a PNG file's chunks right, as far as they go: with wrong ones nothing behind them is read.
void MendChecksums(std::uint8_t* data, std::size_t size) {
    for (std::size_t at = 8; at + 12 <= size;) {
        const std::size_t length = qFromBigEndian<quint32>(data + at);
        if (length > size - at - 12) return;
        qToBigEndian(static_cast<quint32>(crc32(0, data + at + 4, static_cast<uInt>(length) + 4)),
                     data + at + 8 + length);
        at += 12 + length;
    }
}

/// A change that makes the file another format's, or none's, leaves its head as it was; where that isn't enough, all.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned) {
    const kelu::PictureFormat* format = FormatOf(data, size);
    const std::vector<std::uint8_t> before(data, data + size);
    const std::size_t changed = LLVMFuzzerMutate(data, size, maxSize);
    if (FormatOf(data, changed) != format)
        std::copy_n(before.cbegin(), std::min({changed, size, static_cast<std::size_t>(kelu::kHeadBytes)}), data);
    if (format && qstrcmp(format->name, "PNG") == 0 && data[changed / 2] % 8 != 0) MendChecksums(data, changed);
    if (FormatOf(data, changed) == format) return changed;
    std::copy_n(before.cbegin(), size, data);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ++readers.given[FormatOf(data, size)];
    QFile file(SharedPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
    file.close();
    try {
        const kelu::Photograph read = kelu::ReadPhotograph(file.fileName());
        if (read.picture.isNull() || read.picture.depth() != 32) std::abort();
        if (qHash(bytes) % 256 == 0) WriteAndReadAgain(read);
    } catch (const kelu::Error& error) {
        if (error.Description().isEmpty()) std::abort();
    }
    try {
        const QImage thumbnail = kelu::ReadThumbnail(file.fileName(), QSize(20, 20));
        if (thumbnail.width() > 20 || thumbnail.height() > 20) std::abort();
    } catch (const kelu::Error&) {
    }
    return 0;
}
