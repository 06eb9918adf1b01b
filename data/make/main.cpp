// kelu_make_data GALLERY DATA APP: draws the program's own pictures again and writes them into the source folders DATA
// and APP. Only for who changes them; the results are kept in the repository.
// SPDX-License-Identifier: MIT
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
        Write(data.filePath("ploader.rs"), Encoded(kelu::MakePlaceholder(), "PNG", 10));
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
