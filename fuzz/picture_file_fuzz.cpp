// Feeds any bytes to the picture readers, as a whole picture and as a thumbnail. Each must end soon with a picture or
// an Error, without a crash. Built for libFuzzer; start it on small files of all formats.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdlib>

#include "pictures/picture_file.h"
#include "pictures/picture_format.h"
#include "platform/error.h"

namespace {

// Keeps one round short: larger pictures differ in nothing but size. The fields are where each format has them; a
// format without a row here is bounded by the length of the input.
bool Large(const QByteArray& bytes) {
    using kelu::BigEndian;
    using kelu::LittleEndian;
    constexpr quint64 kMostPixels = 1 << 20;
    const auto large = [](quint64 width, quint64 height) { return width * height > kMostPixels; };
    switch (kelu::TellPictureFormat(bytes.left(128), bytes.size())) {
        case kelu::PictureFormat::Png:
            return large(BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4));
        case kelu::PictureFormat::Psd:
            return large(BigEndian(bytes, 18, 4), BigEndian(bytes, 14, 4));
        case kelu::PictureFormat::Gif:
            return large(LittleEndian(bytes, 6, 2), LittleEndian(bytes, 8, 2));
        case kelu::PictureFormat::Tga:
            return large(LittleEndian(bytes, 12, 2), LittleEndian(bytes, 14, 2));
        case kelu::PictureFormat::Pcx:
            return large(LittleEndian(bytes, 8, 2), LittleEndian(bytes, 10, 2));
        default:
            return false;
    }
}

QString SharedPath() {
    static QTemporaryDir folder(QDir(QStringLiteral("/dev/shm")).exists()
                                    ? QStringLiteral("/dev/shm/kelu-fuzz-XXXXXX")
                                    : QDir::tempPath() + QStringLiteral("/kelu-fuzz-XXXXXX"));
    return folder.filePath(QStringLiteral("picture"));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (Large(bytes)) return 0;
    QFile file(SharedPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
    file.close();
    try {
        const QImage picture = kelu::ReadPicture(file.fileName());
        if (picture.isNull() || picture.depth() != 32) std::abort();
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
