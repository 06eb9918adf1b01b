// kelu_make_data GALLERY DATA APP: draws the program's own pictures again and writes them into the source folders DATA
// and APP. Only for who changes them; the results are kept in the repository.
// SPDX-License-Identifier: MIT
#include <png.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <cstdio>

#include "controls/theme/theme.h"
#include "data/make/small_data.h"
#include "data/make/splash_pictures.h"
#include "platform/error.h"

namespace {

constexpr int kBestQuality = 82, kWorstQuality = 60;
constexpr qsizetype kMostBytes = 150 * 1000;  // they all lie in the repository

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw kelu::Error(kelu::kFileError, path + QStringLiteral(": ") + file.errorString());
    }
}

QByteArray Encoded(const QImage& picture, const char* format, int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, format, quality))
        throw kelu::Error(kelu::kFileError, QStringLiteral("a picture cannot be encoded"));
    return buffer.data();
}

// Of a drawn picture filters save hardly a byte, and undoing them takes longer at each start than all the rest of
// reading.
QByteArray UnfilteredPng(const QImage& picture) {
    const QImage rgba = picture.convertToFormat(QImage::Format_RGBA8888);
    QByteArray bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    const auto write = [](png_structp writer, png_bytep from, std::size_t count) {
        static_cast<QByteArray*>(png_get_io_ptr(writer))
            ->append(reinterpret_cast<const char*>(from), static_cast<qsizetype>(count));
    };
    png_set_write_fn(png, &bytes, write, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(rgba.width()), static_cast<png_uint_32>(rgba.height()), 8,
                 PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, 9);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(png, info);
    for (int y = 0; y < rgba.height(); ++y) png_write_row(png, rgba.constScanLine(y));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

QByteArray SmallJpeg(const QImage& picture) {
    int quality = kBestQuality;
    QByteArray bytes = Encoded(picture, "JPEG", quality);
    while (bytes.size() > kMostBytes && quality > kWorstQuality) bytes = Encoded(picture, "JPEG", --quality);
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    kelu::theme::Apply(application);
    const QStringList words = QApplication::arguments();
    if (words.size() != 4) {
        std::fputs("usage: kelu_make_data GALLERY DATA APP\n", stderr);
        return 2;
    }
    const QDir data(words[2]), app(words[3]);
    try {
        Write(app.filePath("splash.gif"), kelu::MakeStrokeAnimation());
        Write(data.filePath("kelu.snd"), kelu::MakeShutterSound());
        Write(data.filePath("ploader.rs"), UnfilteredPng(kelu::MakePlaceholder()));
        for (int number = 1; number <= kelu::kSplashPictures; ++number) {
            Write(data.filePath(QString("scr_loader%1.rs").arg(number)),
                  SmallJpeg(kelu::MakeSplashPicture(number, words[1])));
        }
    } catch (const kelu::Error& error) {
        std::fprintf(stderr, "kelu_make_data: %s\n", error.what());
        return 1;
    }
    return 0;
}
