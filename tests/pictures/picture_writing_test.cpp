// Writing pictures: read back by other programs' eyes, and whole or not at all.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <QColorSpace>
#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <array>
#include <random>

#include "picture_samples.h"
#include "pictures/exif.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

using namespace picture_test;

QImage NoisyPicture(int width, int height) {
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
                               NoisyPicture(1300, 900),  // several bands
                               SoftPicture(60000, 12),   // rows longer than the dictionary
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
            EXPECT_EQ(LargestDifference(back, picture), 0);
            EXPECT_NEAR(back.dotsPerMeterX(), 11811, 1);
            EXPECT_NEAR(back.dotsPerMeterY(), 5906, 1);
            EXPECT_EQ(LargestDifference(ReadPicture(path), picture), 0);
        }
    }
    KELU_NEEDS("convert");
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

// The tags of each file as exiftool prints them.
QJsonArray Tags(const QStringList& paths) {
    QByteArray json;
    EXPECT_TRUE(RunTool("exiftool", QStringList{"-json", "-n", "-G1", "-struct", "-validate", "-all"} + paths, &json));
    return QJsonDocument::fromJson(json).array();
}

std::string Text(const QJsonValue& value) {
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

const QString kTold =
    "-IFD0:Orientation=6|-IFD0:Make=Kamera|-IFD0:Artist=J\u00e9r\u00f4me|-IFD0:Copyright=mine|"
    "-IFD0:ModifyDate=2024:05:06 07:08:09|-ExifIFD:ExposureTime=0.004|-ExifIFD:DateTimeOriginal=2024:05:06 07:08:09|"
    "-ExifIFD:UserComment=at the sea|-ExifIFD:ExifImageWidth=4000|-ExifIFD:ExifImageHeight=3000|"
    "-ExifIFD:ColorSpace=65535|-InteropIFD:InteropIndex=R03|-GPS:GPSLatitude=52.5|-GPS:GPSLatitudeRef=N|"
    "-GPS:GPSLongitude=13.4|-GPS:GPSLongitudeRef=E|-XMP-dc:Title=Am Meer|-XMP-xmp:Rating=4|-XMP-tiff:Orientation=6|"
    "-XMP-tiff:ImageWidth=4000|-IPTC:Keywords=sea|-IPTC:Keywords=sand|-IPTC:City=Rerik|-Comment=hello";

// Every road between formats that carry it, with the picture turned by the way.
TEST(PictureWriting, WhatAPhotographCarriesIsKept) {
    KELU_NEEDS("exiftool");
    QTemporaryDir folder;
    const auto path = [&](const QString& name) { return folder.filePath(name); };
    SoftPicture(60, 40).save(path("small.jpg"));
    const QStringList formats{"jpg", "png", "tif", "webp"};
    for (const QString& from : formats) {
        QImage picture = SoftPicture(120, 80);
        picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
        picture.setDotsPerMeterX(11811);
        picture.setDotsPerMeterY(11811);
        ASSERT_TRUE(picture.save(path("from." + from), nullptr, 100));
        QStringList arguments = QStringList{"-overwrite_original", "-m", "-q", "-n"} + kTold.split('|');
        arguments +=
            "-XMP-photoshop:History=" + QString(90000, u'h') + QStringLiteral("\u00dc\U0001d11e");  // in pieces
        if (from == "jpg") arguments += "-ThumbnailImage<=" + path("small.jpg");
        ASSERT_TRUE(RunTool("exiftool", arguments + QStringList{path("from." + from)}));
        const Photograph read = ReadPhotograph(path("from." + from));
        WriteOptions options;
        options.metadata = read.metadata;
        QStringList files{path("from." + from), path("sent.jpg")};
        for (const QString& to : formats) {
            files += path("to." + to);
            WritePicture(read.picture, files.last(), options);
        }
        options.metadata = WithoutPlace(read.metadata);
        WritePicture(read.picture, path("sent.jpg"), options);
        const QJsonArray told = Tags(files);
        const QJsonObject before = told[0].toObject();
        for (qsizetype i = 0; i < formats.size(); ++i) {
            const QString& to = formats[i];
            SCOPED_TRACE((from + " to " + to).toStdString());
            QJsonObject expected{
                {"IFD0:Orientation", 1},    {"ExifIFD:ExifImageWidth", 80},     {"ExifIFD:ExifImageHeight", 120},
                {"ExifIFD:ColorSpace", 1},  {"InteropIFD:InteropIndex", "R98"}, {"XMP-tiff:Orientation", 1},
                {"XMP-tiff:ImageWidth", 80}};
            for (auto tag = before.begin(); tag != before.end(); ++tag) {
                const QString group = tag.key().section(':', 0, 0);
                const bool carried = group == "GPS" || group == "ExifIFD" ||
                                     (group.startsWith("XMP-") && group != "XMP-xmpNote") ||
                                     (group == "IPTC" && to != "webp" && from != "webp");
                if (carried && !expected.contains(tag.key())) expected[tag.key()] = tag.value();
            }
            for (const char* tag : {"IFD0:Make", "IFD0:Artist", "IFD0:Copyright", "IFD0:ModifyDate"})
                expected[tag] = before[tag];
            if (from != "tif" && from != "webp" && to != "webp")
                expected[to == "jpg"   ? "File:Comment"
                         : to == "png" ? "PNG:Comment"
                                       : "IFD0:ImageDescription"] = "hello";
            const QJsonObject after = told[i + 2].toObject();
            for (auto tag = expected.begin(); tag != expected.end(); ++tag)
                EXPECT_EQ(Text(after[tag.key()]), Text(tag.value())) << tag.key().toStdString();
            // What it warns of in TIFF files is EXIF data that only JPEG files should have.
            EXPECT_TRUE(after["ExifTool:Validate"].toString().startsWith(to == "tif" ? "0 " : "0 0 "))
                << Text(after["ExifTool:Warning"]);
            EXPECT_FALSE(after.contains("IFD1:ThumbnailOffset"));
            if (to != "webp" && from != "webp") {
                EXPECT_NEAR(ReadPicture(path("to." + to)).dotsPerMeterX(), 11811, 2);
            }
            EXPECT_TRUE(to == "png" ? after.contains("PNG:SRGBRendering")
                                    : to == "webp" || after["ICC-header:ColorSpaceData"] == "RGB ");
            EXPECT_EQ(QImageReader(path("to." + to)).size(), QSize(80, 120));
            EXPECT_LE(Compare(ReadPicture(path("to." + to)), read.picture).mean, 2);
        }
        // A picture that is sent away tells of no place.
        const QJsonObject sent = told[1].toObject();
        EXPECT_EQ(Text(sent["IFD0:Artist"]), Text(before["IFD0:Artist"]));
        for (const QString& tag : sent.keys())
            EXPECT_FALSE(tag.contains("GPS") || tag.startsWith("IPTC") || tag.startsWith("XMP")) << tag.toStdString();
    }
}

// A maker's note tells of places that count from the begin of the block, so it must not move. And no damage may
// lead out of the block.
TEST(PictureWriting, ExifBlocksAreMadeAnewAroundTheMakersNote) {
    TiffTags tags;
    const QByteArray note(300, 'n');
    TiffTags::PutBytes(tags.main, 271, kText, QByteArray("A make of some length\0", 22));
    TiffTags::PutBytes(tags.exif, TiffTags::kNoteTag, kUndefined, note);
    TiffTags::PutBytes(tags.exif, 37510, kUndefined, QByteArray(500, 'c'));
    TiffTags::PutBytes(tags.gps, 29, kText, QByteArray("2024:05:06\0", 11));
    const QByteArray block = WriteTiffTags(tags);
    const QImage picture = SoftPicture(30, 20);
    const QByteArray made = ExifBlockFor(block, picture, INT_MAX);
    EXPECT_EQ(made.indexOf(note), block.indexOf(note));
    EXPECT_EQ(ReadTiffTags(made).exif.size(), 5u);
    EXPECT_EQ(ReadTiffTags(made).gps.size(), 1u);
    EXPECT_LE(ExifBlockFor(block, picture, 700).size(), 700);
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        QByteArray damaged = made.left(1 + static_cast<int>(random() % static_cast<unsigned>(made.size())));
        for (int i = 0; i < 4; ++i)
            damaged[static_cast<int>(random() % std::min(200u, static_cast<unsigned>(damaged.size())))] =
                static_cast<char>(random() % 4 ? random() % 64 : random());
        const QByteArray again = ExifBlockFor(damaged, picture, 65000);
        ASSERT_LE(again.size(), 65000);
        ASSERT_EQ(ExifBlockFor(again, picture, 65000).size(), again.size()) << round;
    }
}

/// Each pixel with its neighbours, as an eye sees it.
QImage Softened(const QImage& image) {
    QImage soft = image.copy();
    for (int y = 1; y < image.height() - 1; ++y) {
        for (int x = 1; x < image.width() - 1; ++x) {
            std::array<int, 3> sum{};
            for (int i = 0; i < 9; ++i) {
                const QRgb near = image.pixel(x + i % 3 - 1, y + i / 3 - 1);
                const int weight = (i % 3 == 1 ? 2 : 1) * (i / 3 == 1 ? 2 : 1);
                for (int c = 0; c < 3; ++c) sum[std::size_t(c)] += weight * int((near >> (8 * c)) & 255);
            }
            soft.setPixel(x, y, qRgb((sum[2] + 8) / 16, (sum[1] + 8) / 16, (sum[0] + 8) / 16));
        }
    }
    return soft;
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

    const QImage photograph = NoisyPicture(900, 700);
    WritePicture(photograph, path);
    const QImage back = QImage(path).convertToFormat(QImage::Format_RGB32);
    // Seen from afar, dither averages out: the mean of areas stays.
    const auto fromAfar = [](const QImage& image) {
        return image.scaled(QSize(90, 70), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    EXPECT_GT(Psnr(fromAfar(back), fromAfar(photograph)), 40);
    EXPECT_GT(Psnr(back, photograph), 29);
    if (MissingTool({"convert"}).isEmpty()) {
        ASSERT_TRUE(photograph.save(folder.filePath("b.png")));
        ASSERT_TRUE(RunTool("convert", {folder.filePath("b.png"), folder.filePath("b.gif")}));
        // Pixel by pixel the one who dithers less is nearer, with bands for a price: newer versions hardly dither.
        const QImage other = QImage(folder.filePath("b.gif")).convertToFormat(QImage::Format_RGB32);
        EXPECT_GT(Psnr(Softened(back), Softened(photograph)), Psnr(Softened(other), Softened(photograph)) + 1);
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
    const QImage picture = NoisyPicture(400, 300);
    const auto failure = [&](const QString& path) {
        const Error error = ErrorOf([&] { WritePicture(picture, path); });
        EXPECT_TRUE(error.Number() == 0 || error.Number() == kFileError);
        return error.Description();
    };
    ASSERT_TRUE(dir.mkdir("x.png"));
    for (const char* name : {"x.png", "missing/x.png", "x.psd", "noextension"})
        EXPECT_NE(failure(dir.filePath(name)), "") << name;
    constexpr struct {
        const char* format;
        int most;  // pixels of a side
    } kLimits[] = {{"JPEG", 65500}, {"GIF", 65535}, {"WebP", 16383}};
    for (const auto& [format, most] : kLimits) {
        const QString path = dir.filePath(QStringLiteral("wide.") + format);
        EXPECT_EQ(ErrorOf([&] { WritePicture(NoisyPicture(most + 1, 1), path); }).Description(),
                  QStringLiteral("The picture is too large for a %1 file").arg(format));
        WritePicture(NoisyPicture(most, 1), path);
        EXPECT_EQ(ReadPicture(path).width(), most);
        QFile::remove(path);
    }
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
