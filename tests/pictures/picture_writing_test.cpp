// Writing pictures: read back by other programs' eyes, and whole or not at all.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <random>

#include "picture_samples.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

using namespace picture_test;

QImage Photograph(int width, int height) {
    QImage image = SoftPicture(width, height);
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 2);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb p = image.pixel(x, y);
            const auto channel = [&](int value, double wave) {
                return qBound(0, qRound(value * 0.7 + 40 + 35 * std::sin(wave) + noise(random)), 255);
            };
            image.setPixel(
                x, y,
                qRgb(channel(qRed(p), x * 0.05), channel(qGreen(p), y * 0.04), channel(qBlue(p), (x - y) * 0.03)));
        }
    }
    return image;
}

TEST(PictureWriting, LosslessFormatsComeBackAsTheyWere) {
    QTemporaryDir folder;
    QImage clear = SoftPicture(320, 200).convertToFormat(QImage::Format_ARGB32);
    for (int x = 0; x < 320; ++x) clear.setPixel(x, 100, qRgba(x % 256, 20, 30, x % 256));
    QImage grey(500, 3, QImage::Format_RGB32);
    for (int i = 0; i < 1500; ++i) grey.setPixel(i % 500, i / 500, qRgb(i % 256, i % 256, i % 256));
    const QImage pictures[] = {SoftPicture(1, 1),
                               SoftPicture(1, 700),
                               SoftPicture(700, 1),
                               grey,
                               clear,
                               Photograph(1300, 900),   // several bands
                               SoftPicture(60000, 12),  // rows longer than the dictionary
                               clear.convertToFormat(QImage::Format_RGB32).convertToFormat(QImage::Format_ARGB32)};
    for (const QImage& picture : pictures) {
        for (const char* name : {"p.png", "p.bmp", "p.tif", "p.TIFF"}) {
            SCOPED_TRACE(testing::Message() << name << ' ' << picture.width() << 'x' << picture.height());
            if (QByteArray(name) == "p.bmp" && &picture == &pictures[4]) continue;  // keeps no transparency
            QImage marked = picture;
            marked.setDotsPerMeterX(11811);
            marked.setDotsPerMeterY(5906);
            const QString path = folder.filePath(name);
            WritePicture(marked, path);
            if (&picture == &pictures[4] && !path.endsWith("png")) {  // readers multiply by alpha, and back
                const auto look = [](const QImage& image) {
                    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
                };
                EXPECT_LE(Compare(look(ReadPicture(path)), look(picture)).largest, 1);
                continue;
            }
            const QImage back(path);  // the toolkit's own reader
            ASSERT_EQ(back.size(), picture.size());
            EXPECT_TRUE(SamePixels(back, picture));
            EXPECT_NEAR(back.dotsPerMeterX(), 11811, 1);
            EXPECT_NEAR(back.dotsPerMeterY(), 5906, 1);
            EXPECT_TRUE(SamePixels(ReadPicture(path), picture));
        }
    }
    if (!HasTool("convert")) GTEST_SKIP() << "ImageMagick is missing: no second reader for PNG";
    WritePicture(pictures[5], folder.filePath("a.png"));
    ASSERT_TRUE(RunTool("convert", {folder.filePath("a.png"), "BMP3:" + folder.filePath("a.bmp")}));
    EXPECT_EQ(Compare(QImage(folder.filePath("a.bmp")), pictures[5]).largest, 0);
}

TEST(PictureWriting, JpegKeepsColourAtFullResolution) {
    QTemporaryDir folder;
    QImage picture(256, 256, QImage::Format_RGB32);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) picture.setPixel(x, y, (x / 2) % 2 ? qRgb(200, 60, 60) : qRgb(60, 60, 200));
    picture.setDotsPerMeterX(11811);
    picture.setDotsPerMeterY(11811);
    for (const char* name : {"a.jpg", "a.JPEG"}) {
        WritePicture(picture, folder.filePath(name));
        const QByteArray bytes = ReadBytes(folder.filePath(name));
        const qsizetype frame = bytes.indexOf(QByteArray::fromHex("ffc0"));
        ASSERT_GT(frame, 0);
        for (int component = 0; component < 3; ++component) EXPECT_EQ(bytes[frame + 11 + 3 * component], '\x11');
        const QImage back(folder.filePath(name));
        EXPECT_GT(Psnr(back, picture), 38);
        EXPECT_NEAR(back.dotsPerMeterX(), 11811, 1);
    }
    QImage clear(50, 50, QImage::Format_ARGB32);
    clear.fill(qRgba(0, 0, 0, 0));
    WritePicture(clear, folder.filePath("clear.jpg"));
    EXPECT_EQ(QImage(folder.filePath("clear.jpg")).pixel(20, 20), qRgb(255, 255, 255));
}

TEST(PictureWriting, GifKeepsFewColoursExactlyAndPhotographsNearly) {
    QTemporaryDir folder;
    const QString path = folder.filePath("a.gif");
    QImage few(200, 100, QImage::Format_ARGB32);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) few.setPixel(x, y, x < 5 ? 0 : qRgb(x + 50, x + 40, 7));
    WritePicture(few, path);
    EXPECT_EQ(ReadPicture(path), few);
    EXPECT_EQ(QImage(path).convertToFormat(QImage::Format_ARGB32), few);

    const QImage photograph = Photograph(900, 700);
    WritePicture(photograph, path);
    const QImage back = QImage(path).convertToFormat(QImage::Format_RGB32);
    // Seen from afar, dither averages out: the mean of areas stays.
    const auto fromAfar = [](const QImage& image) {
        return image.scaled(QSize(90, 70), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    EXPECT_GT(Psnr(fromAfar(back), fromAfar(photograph)), 40);
    if (HasTool("convert")) {
        ASSERT_TRUE(photograph.save(folder.filePath("b.png")));
        ASSERT_TRUE(RunTool("convert", {folder.filePath("b.png"), folder.filePath("b.gif")}));
        EXPECT_GT(Psnr(back, photograph), Psnr(QImage(folder.filePath("b.gif")), photograph));
    }
    QImage clear = photograph.convertToFormat(QImage::Format_ARGB32);
    clear.setPixel(10, 10, 0);
    WritePicture(clear, path);
    EXPECT_EQ(qAlpha(ReadPicture(path).pixel(10, 10)), 0);
    EXPECT_EQ(qAlpha(ReadPicture(path).pixel(11, 10)), 255);
}

TEST(PictureWriting, FailuresLeaveTheOldFileAndNothingElse) {
    QTemporaryDir folder;
    const QDir dir(folder.path());
    const QImage picture = Photograph(400, 300);
    const auto failure = [&](const QString& path) {
        try {
            WritePicture(picture, path);
            return QString();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), kFileError);
            return error.Description();
        }
    };
    ASSERT_TRUE(dir.mkdir("x.png"));
    for (const char* name : {"x.png", "missing/x.png", "x.psd", "noextension"})
        EXPECT_NE(failure(dir.filePath(name)), "") << name;
    const QStringList before = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);

    // As on a full disk: no file may grow beyond 8 KB.
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
    for (const char* name : {"old.png", "old.jpg", "old.gif", "old.bmp", "old.tif"}) {
        const QString path = dir.filePath(name);
        WriteBytes(path, "the old file");
        const rlimit small{8192, old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const QString told = failure(path);
        setrlimit(RLIMIT_FSIZE, &old);
        EXPECT_EQ(told, path + ": File too large") << name;
        EXPECT_EQ(ReadBytes(path), "the old file") << name;
        QFile::remove(path);
    }
    signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), before);
}

}  // namespace
}  // namespace kelu
