// Reading real files of all formats, whole, cut short, damaged and hostile.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QColorSpace>
#include <QImageWriter>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <random>

#include "picture_samples.h"
#include "pictures/picture.h"
#include "pictures/picture_file.h"
#include "platform/error.h"

namespace kelu {
namespace {

using namespace picture_test;

struct Sample {
    const char* tool;       ///< convert (ImageMagick) or gm (GraphicsMagick)
    const char* target;     ///< with its coder where the extension is not enough
    const char* options;    ///< between source and target
    int tolerance;          ///< largest difference of a channel
    const char* reference;  ///< options that make the picture to compare with; "" the source itself
};

constexpr Sample kSamples[] = {
    {"convert", "BMP3:a.bmp", "", 0, ""},
    {"convert", "BMP2:b.bmp", "", 0, ""},
    {"convert", "BMP3:c.bmp", "-colors 200 -dither None -type Palette", 1, "-colors 200 -dither None"},
    {"convert", "d.gif", "", 110, ""},
    {"convert", "e.gif", "-colors 16 -dither None -interlace GIF", 1, "-colors 16 -dither None"},
    {"convert", "f.jpg", "-quality 98 -sampling-factor 1x1", 5, ""},
    {"convert", "g.jpg", "-quality 98 -sampling-factor 1x1 -interlace JPEG", 5, ""},
    {"convert", "h.jpg", "-quality 98 -colorspace Gray", 4, "-colorspace Gray"},
    {"convert", "i.jpg", "-quality 98 -sampling-factor 1x1 -colorspace CMYK", 6, ""},
    {"convert", "j.png", "", 0, ""},
    {"convert", "PNG48:k.png", "", 1, ""},
    {"convert", "l.png", "-interlace PNG", 0, ""},
    {"convert", "m.png", "-colorspace Gray -depth 8", 1, "-colorspace Gray"},
    {"convert", "PNG8:n.png", "-colors 200 -dither None", 0, "-colors 200 -dither None"},
    {"convert", "o.tif", "", 0, ""},
    {"convert", "p.tif", "-compress LZW", 0, ""},
    {"convert", "q.tif", "-compress Zip -depth 16", 1, ""},
    {"convert", "r.tif", "-colorspace Gray", 1, "-colorspace Gray"},
    {"convert", "s.tif", "-endian MSB -define tiff:tile-geometry=32x32", 0, ""},
    {"convert", "t.pcx", "", 0, ""},
    {"convert", "u.pcx", "-colors 200 -dither None -type Palette", 1, "-colors 200 -dither None"},
    {"convert", "v.psd", "-compress None", 0, ""},
    {"convert", "w.psd", "-compress RLE", 0, ""},
    {"convert", "x.psd", "-depth 16", 1, ""},
    {"convert", "y.psd", "-colorspace CMYK", 3, ""},
    {"convert", "z.psd", "-colorspace Gray -depth 8", 2, "-colorspace Gray"},
    {"gm", "a.tga", "-compress None", 0, ""},
    {"gm", "b.tga", "-compress RLE", 0, ""},
    {"gm", "c.tga", "-colorspace Gray", 2, "-colorspace Gray"},
};

// The kinds of files that readers have gone wrong at, as bench/picture_kinds.py --samples writes them.
struct Kind {
    std::string name;
    double tolerance;  ///< mean over all channels, colours multiplied by alpha
    QByteArray file;
    QImage seen;
};

std::vector<Kind> ReadKinds() {
    std::vector<Kind> kinds;
    for (const QByteArray& line : ReadBytes(KELU_SOURCE_DIR "/tests/pictures/kinds.tsv").trimmed().split('\n')) {
        const QList<QByteArray> cells = line.split('\t');
        const QByteArray pixels = qUncompress(QByteArray::fromBase64(cells[5]));
        const int width = cells[3].toInt();
        const int height = static_cast<int>(pixels.size()) / 4 / width;
        const QImage seen(reinterpret_cast<const uchar*>(pixels.constData()), width, height, QImage::Format_ARGB32);
        kinds.push_back({(cells[0] + ": " + cells[1]).toStdString(), cells[2].toDouble(),
                         qUncompress(QByteArray::fromBase64(cells[4])), seen.copy()});
    }
    return kinds;
}

double MeanDifference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1000;
    const QImage seenA = a.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage seenB = b.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    double sum = 0;
    for (qsizetype i = 0; i < seenA.sizeInBytes(); ++i) sum += std::abs(seenA.constBits()[i] - seenB.constBits()[i]);
    return sum / static_cast<double>(seenA.sizeInBytes());
}

TEST(PictureKinds, AreReadRight) {
    QTemporaryDir folder;
    const QString path = folder.filePath("x.rs");
    for (const Kind& kind : ReadKinds()) {
        WriteBytes(path, kind.file);
        try {
            QImage read = ReadPicture(path);
            read.reinterpretAsFormat(QImage::Format_ARGB32);  // an unused byte counts: strokes take it for alpha
            EXPECT_LE(MeanDifference(read, kind.seen), kind.tolerance) << kind.name;
        } catch (const Error& error) {
            ADD_FAILURE() << kind.name << ": " << error.what();
        }
    }
}

// The samples are made once for all tests.
class PictureReading : public testing::Test {
 protected:
    static void SetUpTestSuite() { folder_ = std::make_unique<QTemporaryDir>(); }
    static void TearDownTestSuite() { folder_.reset(); }
    void SetUp() override {
        KELU_NEEDS("convert", "gm");
        source_ = SoftPicture(97, 61);
        ASSERT_TRUE(source_.save(Path("source.png")));
    }
    QString Path(const QString& name) const { return folder_->filePath(name); }

    /// Makes the sample under a name whose extension says nothing; empty on failure.
    QString Make(const Sample& sample) {
        const QString target = QString::fromLatin1(sample.target);
        const QString name = target.section(':', -1);
        const QString path = Path(name);
        const QString hidden = Path(name + ".rs");
        if (QFile::exists(hidden)) return hidden;
        QStringList arguments{Path("source.png"), "-strip"};  // no comments behind the pixels
        arguments += QString::fromLatin1(sample.options).split(' ', Qt::SkipEmptyParts);
        arguments += target.contains(':') ? target.section(':', 0, 0) + ':' + path : path;
        if (QLatin1String(sample.tool) == QLatin1String("gm")) arguments.prepend("convert");
        if (!RunTool(sample.tool, arguments)) return {};
        return QFile::rename(path, hidden) ? hidden : QString();
    }

    static inline std::unique_ptr<QTemporaryDir> folder_;
    QImage source_;
};

TEST_F(PictureReading, AllFormatsByContent) {
    for (const Sample& sample : kSamples) {
        SCOPED_TRACE(testing::Message() << sample.tool << ' ' << sample.options << ' ' << sample.target);
        const QString path = Make(sample);
        ASSERT_FALSE(path.isEmpty());
        QImage expected = source_;
        if (*sample.reference) {
            QStringList arguments{Path("source.png")};
            arguments += QString::fromLatin1(sample.reference).split(' ');
            if (QLatin1String(sample.tool) == QLatin1String("gm")) arguments.prepend("convert");
            ASSERT_TRUE(RunTool(sample.tool, arguments << "PNG24:" + Path("reference.png")));
            expected = QImage(Path("reference.png"));
        }
        try {
            const QImage picture = ReadPicture(path);
            EXPECT_EQ(picture.format(), QImage::Format_RGB32);
            EXPECT_LE(Compare(picture, expected).largest, sample.tolerance);
            EXPECT_EQ(picture.pixel(3, 3) >> 24, 255u);
        } catch (const Error& error) {
            ADD_FAILURE() << error.what();
        }
    }
}

TEST_F(PictureReading, FilesCutShortAreErrorsButForTheirEndMark) {
    const QMap<QString, int> endMarks{{"jpg", 2}, {"png", 12}, {"gif", 1}};  // bytes
    for (const Sample& sample : kSamples) {
        const QString path = Make(sample);
        ASSERT_FALSE(path.isEmpty());
        const QByteArray bytes = ReadBytes(path);
        const QString cut = Path("cut");
        for (const double share : {0.0, 0.02, 0.1, 0.5, 0.8, 0.9}) {
            SCOPED_TRACE(testing::Message() << sample.target << ' ' << sample.options << " cut at " << share);
            WriteBytes(cut, bytes.left(qsizetype(double(bytes.size()) * share)));
            EXPECT_GT(ReadingError(cut), 0);
        }
        if (const int mark = endMarks.value(QString(sample.target).section('.', -1))) {
            WriteBytes(cut, bytes.chopped(mark));
            EXPECT_EQ(ReadPicture(cut), ReadPicture(path)) << sample.target;
        }
    }
}

TEST_F(PictureReading, DamagedFilesGiveAPictureOrOneError) {
    std::vector<std::pair<std::string, QByteArray>> files;
    for (const Sample& sample : kSamples) files.emplace_back(sample.target, ReadBytes(Make(sample)));
    for (const Kind& kind : ReadKinds()) files.emplace_back(kind.name, kind.file);
    std::mt19937 random(1);
    for (const auto& [name, bytes] : files) {
        ASSERT_FALSE(bytes.isEmpty()) << name;
        for (int round = 0; round < 12; ++round) {
            QByteArray damaged = bytes;
            const auto area = static_cast<unsigned>(round % 2 ? bytes.size() : std::min<qsizetype>(bytes.size(), 160));
            for (int i = 0; i < 4; ++i) damaged[qsizetype(random() % area)] = static_cast<char>(random());
            WriteBytes(Path("damaged"), damaged);
            EXPECT_GE(ReadingError(Path("damaged")), 0) << name << ' ' << round;
        }
    }
}

TEST_F(PictureReading, OrientationTagsAreObeyed) {
    KELU_NEEDS("exiftool");
    const QStringList paths{Path("o.jpg"), Path("o.tif"), Path("o.png")};
    for (const QString& path : paths)
        ASSERT_TRUE(RunTool("convert", {Path("source.png"), "-quality", "98", "-sampling-factor", "1x1", path}));
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QString tag = "-IFD0:Orientation=" + QString::number(orientation);
        ASSERT_TRUE(RunTool("exiftool", QStringList{"-overwrite_original", "-n", tag} + paths));
        for (const QString& path : paths) {
            SCOPED_TRACE(testing::Message() << path.toStdString() << ' ' << orientation);
            const QImage upright = Orient(source_, orientation);
            EXPECT_LE(Compare(ReadPicture(path), upright).largest, 5);
            const QSize small = upright.size().scaled(40, 40, Qt::KeepAspectRatio);
            EXPECT_LE(Compare(ReadThumbnail(path, QSize(40, 40)), ScalePicture(upright, small)).largest, 6);
        }
    }
}

TEST(PictureFile, EmbeddedProfilesBecomeSrgb) {
    QTemporaryDir folder;
    QImage image = SoftPicture(80, 60);
    for (const auto named : {QColorSpace::AdobeRgb, QColorSpace::DisplayP3, QColorSpace::SRgb}) {
        image.setColorSpace(QColorSpace(named));
        const QImage expected = image.convertedToColorSpace(QColorSpace(QColorSpace::SRgb));
        for (const char* name : {"a.png", "a.jpg", "a.tif"}) {
            const QString path = folder.filePath(name);
            QImageWriter writer(path);
            writer.setQuality(100);
            ASSERT_TRUE(writer.write(image));
            const QImage picture = ReadPicture(path);
            // Chroma of the JPEG is at half resolution.
            EXPECT_LE(Compare(picture, expected).mean, QByteArray(name).endsWith("jpg") ? 4 : 1.5) << name << named;
            if (named == QColorSpace::SRgb && !QByteArray(name).endsWith("jpg")) {
                EXPECT_EQ(Compare(picture, expected).largest, 0);
            }
        }
    }
}

// A JPEG of 8 x 8 pixels, packed by another program; what it tells stands in compressed boxes.
const char kPackedJpeg[] =
    "AAAADEpYTCANCocKAAAAFGZ0eXBqeGwgAAAAAGp4bCAAAAATanhscAAAAAD/CkFAUNwIAAAAPGpicmTBcAMIQsuAAJAYAAgBEQAA"
    "AAD/nwgAAAAA/gf4AQAACwiA4AAQSkZJRgABAQAAAQABAAADAAAAU2Jyb2JFeGlmG10AAAT+c/f+3W7LswJpgQZ220kkgWg6OdGD"
    "H4S+FhwCbgeMLLcxXOqwIoiMUsXu2wgNwlZtaoZXCxejgwGe71m/9Zj/VzsAAAC9anhscIAAAAHgWwAQAKgCDGQMZAxk/v8OAAAY"
    "AAgAAQAAAAAAgIAliSQou0kdAM1OwgV6AAAKISkoKJCCGINDMViFKGOMMYxhDJERg1UjYoxhCDAgMQEAAAADAJgAAADgBBCTtvCy"
    "Al0w6DQnfuFIgAdAQcpCRTJAVztBAwU9DAAgxMHoRlEjUIB2IwpSlymSAYoMTxooCLwLg00TygGLSKECUkNQUDQ5kQxQ0AAtRkEA"
    "AAAAAABASQI=";

TEST_F(PictureReading, ResolutionAndTransparencyAreKept) {
    for (const char* name : {"r.png", "r.jpg", "r.tif", "r.bmp", "r.psd", "r.pcx"}) {
        ASSERT_TRUE(RunTool("convert", {Path("source.png"), "-units", "PixelsPerInch", "-density", "300", Path(name)}));
        EXPECT_NEAR(ReadPicture(Path(name)).dotsPerMeterX(), 11811, 2) << name;
    }
    WriteBytes(Path("packed.jxl"), QByteArray::fromBase64(kPackedJpeg));
    const Photograph packed = ReadPhotograph(Path("packed.jxl"));
    EXPECT_TRUE(packed.metadata.exif.contains("Jo"));
    EXPECT_NEAR(packed.picture.dotsPerMeterX(), 7874, 1);
    QImage clear(20, 10, QImage::Format_ARGB32);
    clear.fill(qRgba(200, 100, 50, 128));
    clear.setPixel(3, 4, 0);
    ASSERT_TRUE(clear.save(Path("clear.png")));
    ASSERT_TRUE(RunTool("convert", {Path("clear.png"), Path("clear.tif")}));
    ASSERT_TRUE(RunTool("gm", {"convert", Path("clear.png"), Path("clear.tga")}));
    ASSERT_TRUE(RunTool("convert", {Path("clear.png"), Path("clear.gif")}));
    for (const char* name : {"clear.png", "clear.tif", "clear.tga", "clear.gif"}) {
        const QImage picture = ReadPicture(Path(name));
        EXPECT_EQ(picture.format(), QImage::Format_ARGB32) << name;
        EXPECT_EQ(qAlpha(picture.pixel(3, 4)), 0) << name;
        if (QByteArray(name) != "clear.gif") {
            EXPECT_LE(Compare(picture.copy(0, 0, 1, 1), clear.copy(0, 0, 1, 1)).largest, 1) << name;
            EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 128) << name;
        }
    }
}

TEST_F(PictureReading, EveryFormatIsHeldToTheLargestSize) {
    std::vector<QByteArray> files;
    for (const Sample& sample : kSamples) files.push_back(ReadBytes(Make(sample)));
    for (const Kind& kind : ReadKinds()) files.push_back(kind.file);
    const auto restore = qScopeGuard([most = MaxPicturePixels()] { SetMaxPicturePixels(most); });
    SetMaxPicturePixels(31);
    for (const QByteArray& file : files) {
        WriteBytes(Path("large"), file);
        EXPECT_EQ(ReadingError(Path("large")), kOutOfMemory) << file.left(20).toStdString();
    }
}

// What stands outside the code and names the formats: the desktop entry and the README.
TEST(PictureFormats, AreNamedWhereverPeopleLook) {
    QStringList names, types;
    for (const PictureFormat& format : PictureFormats()) {
        names += format.name;
        types += QString::fromLatin1(format.mimeTypes).split(' ');
    }
    const QString last = names.takeLast();
    EXPECT_TRUE(QString(ReadBytes(KELU_SOURCE_DIR "/README.md"))
                    .simplified()
                    .contains("Reads " + names.join(", ") + " and " + last + "."));
    EXPECT_TRUE(
        QString(ReadBytes(KELU_SOURCE_DIR "/app/kelu.desktop")).contains("\nMimeType=" + types.join(';') + ";\n"))
        << types.join(';').toStdString();
    EXPECT_EQ(SaveFilters().toStdString(),
              "BMP Files (*.bmp)|*.bmp|PNG Files (*.png)|*.png|GIF Files (*.gif)|*.gif|JPEG Files (*.jpg)|*.jpg");
}

// A list of strips of no known type and two thousand million entries, a text of a gigabyte in a small file.
TEST(PictureFile, LengthsThatLieTakeNoMemory) {
    QTemporaryDir folder;
    const QString tiff = folder.filePath("s.tif"), png = folder.filePath("t.png"), late = folder.filePath("l.png");
    WriteBytes(tiff, QByteArray::fromHex("49492a0008000000"
                                         "0100"
                                         "1101"
                                         "ff00"
                                         "ffffff7f"
                                         "08000000"
                                         "00000000"));
    WritePicture(SoftPicture(12, 9), late);
    const QByteArray whole = ReadBytes(late), text = QByteArray::fromHex("40000000") + "tEXtdate";
    WriteBytes(png, QByteArray(whole).insert(33, text));
    WriteBytes(late, QByteArray(whole).insert(whole.size() - 12, text));
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_EQ(ReadingError(tiff), kInvalidPicture);
    EXPECT_EQ(ReadingError(png), kEndOfFile);
    EXPECT_EQ(ReadPicture(late).size(), QSize(12, 9)) << "all pixels are there";
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 200'000) << "kilobytes";
}

TEST(PictureFile, OtherFilesAreRefusedWithTheirReason) {
    QTemporaryDir folder;
    const auto write = [&](const char* name, const QByteArray& bytes) {
        WriteBytes(folder.filePath(name), bytes);
        return folder.filePath(name);
    };
    EXPECT_EQ(ReadingError(folder.filePath("missing.png")), kFileError);
    EXPECT_EQ(ReadingError(folder.path()), kFileError);
    ASSERT_EQ(mkfifo(folder.filePath("pipe.png").toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(ReadingError(folder.filePath("pipe.png")), kFileError);
    EXPECT_EQ(ReadingError(write("empty.png", "")), kInvalidPicture);
    EXPECT_EQ(ReadingError(write("text.jpg", "Hello, this is a text and no picture")), kInvalidPicture);
    EXPECT_EQ(ReadingError(write("zeros.tga", QByteArray(5000, '\0'))), kInvalidPicture);
    EXPECT_EQ(ReadingError(write("script.bmp", "push graphic-context\nimage over 0,0 0,0 'label:@/etc/hostname'")),
              kInvalidPicture);
    EXPECT_EQ(ReadingError(write("vector.png", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")),
              kInvalidPicture);
    EXPECT_EQ(ReadingError(write("page.jpg", "%!PS-Adobe-3.0\n")), kInvalidPicture);
}

TEST(PictureFile, ThumbnailsFitTheBoxAndLookLikeThePicture) {
    QTemporaryDir folder;
    const QImage picture = SoftPicture(900, 600);
    for (const char* name : {"t.jpg", "t.png"}) {
        WritePicture(picture, folder.filePath(name));
        const QImage thumbnail = ReadThumbnail(folder.filePath(name), QSize(90, 90));
        EXPECT_EQ(thumbnail.size(), QSize(90, 60));
        EXPECT_LE(Compare(thumbnail, ScalePicture(picture, QSize(90, 60))).largest, 4) << name;
    }
    for (const auto& [whole, shrunk] : {std::pair(QSize(30, 20), QSize(30, 20)), std::pair(QSize(1, 300), QSize(1, 90)),
                                        std::pair(QSize(300, 1), QSize(90, 1))}) {
        WritePicture(SoftPicture(whole.width(), whole.height()), folder.filePath("other.png"));
        EXPECT_EQ(ReadThumbnail(folder.filePath("other.png"), QSize(90, 90)).size(), shrunk);
    }
}

}  // namespace
}  // namespace kelu
