// Feeds any bytes to the picture readers, as a whole picture and as a thumbnail, and what the file told to the writers.
// Each must end soon with a picture or an Error, without a crash; what was written must be read. Built for libFuzzer;
// start it on small files of all formats.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdlib>

#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace {

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
    // Keeps one round short: larger pictures differ in nothing but size.
    kelu::SetMaxPicturePixels(1 << 20);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QFile file(SharedPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
    file.close();
    try {
        const kelu::Photograph read = kelu::ReadPhotograph(file.fileName());
        if (read.picture.isNull() || read.picture.depth() != 32) std::abort();
        kelu::WriteOptions options;
        options.metadata = read.metadata;
        for (const char* extension : {".jpg", ".png", ".tif", ".webp"}) {
            const QString written = SharedPath() + QLatin1String(extension);
            if (read.picture.width() < 0x4000 && read.picture.height() < 0x4000) {  // the most of WebP
                kelu::WritePicture(read.picture, written, options);
                if (kelu::ReadPicture(written).size() != read.picture.size()) std::abort();
            }
        }
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
