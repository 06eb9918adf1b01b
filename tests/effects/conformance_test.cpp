// Effects whose arithmetic is common ground, beside ImageMagick and GraphicsMagick: what is measured here has to be
// what the table of docs/conformance.md states, row by row.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <functional>
#include <vector>

#include "effects/catalogue/pix_twix.h"
#include "tests/effects/sample_picture.h"

namespace kelu {
namespace {

// Our call and what the two programs are asked for: their options, separated by blanks, empty where a program has no
// such operation. Several cases of one name are one row of the table.
struct Case {
    QString name;
    std::function<bool(PixTwix&)> call;
    QString imageMagick, graphicsMagick;
};

// A level as both programs take it.
QString PerCent(double level) { return QString::number(level / 2.55, 'g', 12) + '%'; }

// Weights row by row from the upper left, and the level that is added to their sum.
QString Correlate(const QString& kernel, double level = 0) {
    return QStringLiteral("-bias %1 -morphology Correlate %2:%3")
        .arg(PerCent(level), kernel.count(',') == 8 ? "3x3" : "5x5", kernel);
}

constexpr const char* kSpecialFilter[] = {
    "-1,1,1,-1,-2,1,-1,1,1",  "1,1,1,1,-2,1,-1,-1,-1",      "-1,-1,-1,1,-2,1,1,1,1",      "1,1,-1,1,-2,-1,1,1,-1",
    "0,-4,0,-4,16,-4,0,-4,0", "-2,-2,-2,-2,16,-2,-2,-2,-2", "6,-12,6,-12,24,-12,6,-12,6", "-4,0,-4,0,16,0,-4,0,-4",
    "0,-6,0,0,12,0,0,-6,0",   "0,0,0,-6,12,-6,0,0,0",       "1,1,1,0,0,0,-1,-1,-1",       "-1,0,1,-1,0,1,-1,0,1",
    "-3,0,0,0,3,0,0,0,0",     "0,-3,0,0,3,0,0,0,0",         "0,0,0,-3,3,0,0,0,0",         "1,2,1,0,0,0,-1,-2,-1",
    "-1,0,1,-2,0,2,-1,0,1",
};
constexpr const char* kHighPass[] = {"-1,-1,-1,-1,9,-1,-1,-1,-1", "0,-1,0,-1,5,-1,0,-1,0", "1,-2,1,-2,5,-2,1,-2,1"};
// c + 2 c[p - 2d] - 2 c[p + 2d], 5x5, d northward and on clockwise.
QString Relief(int direction) {
    constexpr int kDx[] = {0, 1, 1, 1, 0, -1, -1, -1}, kDy[] = {-1, -1, 0, 1, 1, 1, 0, -1};
    QStringList weights(25, QStringLiteral("0"));
    weights[12] = QStringLiteral("1");
    weights[12 - 2 * kDx[direction] - 10 * kDy[direction]] = QStringLiteral("2");
    weights[12 + 2 * kDx[direction] + 10 * kDy[direction]] = QStringLiteral("-2");
    return weights.join(',');
}

std::vector<Case> Cases() {
    const QString luma = QStringLiteral("-grayscale Rec601Luma ");
    const QString gray = QStringLiteral("-colorspace GRAY ");
    // White, or inverted, is what lies above the level; ours is what reaches the next one, after rounding.
    const QString threshold = "-threshold " + PerCent(159.499), solarize = "-solarize " + PerCent(139.5);
    std::vector<Case> cases = {
        {"1 Grayscale, weighted", [](auto& e) { return e.FxGrayscale(1, false); }, luma, gray},
        {"1 Grayscale, proportional", [](auto& e) { return e.FxGrayscale(0, false); }, "-grayscale Average", ""},
        {"3 Black & White", [](auto& e) { return e.FxBlackWhite(160, false); }, luma + threshold, gray + threshold},
        {"8 Blur 1", [](auto& e) { return e.FxBlur1(4, false); }, "-gaussian-blur 12x2", "-gaussian 12x2"},
        {"11 Brightness 1", [](auto& e) { return e.FxBrightness1(35, false); }, "-evaluate Add 35%",
         "-operator All Add 35%"},
        {"13 Contrast", [](auto& e) { return e.FxContrast(100, false); },
         QStringLiteral("-function Polynomial 4,%1").arg(-384 / 255.0, 0, 'g', 12), ""},
        {"15 Color Correction", [](auto& e) { return e.FxColorCorrection(47, 47, 47, 255, 255, 243, false); },
         QStringLiteral("-channel RG -level %1,100% -channel B -level %1,%2").arg(PerCent(47), PerCent(243)), ""},
        {"18 False Color", [](auto& e) { return e.FxFalseColor(20, 20, 0, 200, 50, 100, false); },
         luma + "-set colorspace sRGB +level-colors rgb(20,20,0),rgb(200,100,50)", ""},
        {"19 Enhance Edges", [](auto& e) { return e.FxEnhanceEdges(false); }, Correlate("0,-.5,0,-.5,3,-.5,0,-.5,0"),
         "-convolve 0,-.5,0,-.5,3,-.5,0,-.5,0"},
        {"20 Emboss", [](auto& e) { return e.FxEmboss(1, 2, 127, false, false); },
         luma + Correlate("0,0,-2,0,0,0,2,0,0", 127), ""},
        {"28 Maximum, square", [](auto& e) { return e.FxMaximum(1, 5, false); }, "-morphology Dilate Square:5", ""},
        {"28 Maximum, circle", [](auto& e) { return e.FxMaximum(0, 5, false); }, "-morphology Dilate Disk:5", ""},
        {"29 Minimum, square", [](auto& e) { return e.FxMinimum(1, 5, false); }, "-morphology Erode Square:5", ""},
        {"29 Minimum, circle", [](auto& e) { return e.FxMinimum(0, 5, false); }, "-morphology Erode Disk:5", ""},
        {"31 Mosaic", [](auto& e) { return e.FxMosaic(10, 10, false); }, "-scale 10% -scale 1000%",
         "-scale 10% -sample 1000%"},
        {"32 Negative", [](auto& e) { return e.FxNegative(true, true, true, false); }, "-negate", "-negate"},
        {"34 Posterize, 2 bits", [](auto& e) { return e.FxPosterize(2, 2, 2, false); },
         "-evaluate And 49344 -evaluate Multiply 1.328125", "-operator All And 49344 -operator All Multiply 1.328125"},
        {"34 Posterize, 4 levels", [](auto& e) { return e.FxPosterize(2, 2, 2, false); }, "-posterize 4", ""},
        {"35 Reverse", [](auto& e) { return e.FxReverse(); }, "-flop", "-flop"},
        {"36 Saturation 1", [](auto& e) { return e.FxSaturation1(100, false); },
         "-color-matrix 1.701,-.587,-.114,-.299,1.413,-.114,-.299,-.587,1.886",
         "-recolor 1.701,-.587,-.114,-.299,1.413,-.114,-.299,-.587,1.886"},
        {"39 Solarize", [](auto& e) { return e.FxSolarize(140, 140, 140, true, false); }, solarize, solarize},
        {"45 Tint", [](auto& e) { return e.FxTint(255, 100, 51, false); },
         "-channel G -evaluate Multiply .392156862745 -channel B -evaluate Multiply .2",
         "-operator Green Multiply .392156862745 -operator Blue Multiply .2"},
    };
    const char* const swaps[] = {"1,0,0,0,0,1,0,1,0", "0,0,1,0,1,0,1,0,0", "0,1,0,1,0,0,0,0,1"};
    for (int pair = 0; pair < 3; ++pair)
        cases.push_back({"43 Swap Colors, three pairs", [=](auto& e) { return e.FxSwapColors(pair, false); },
                         QStringLiteral("-color-matrix %1").arg(swaps[pair]),
                         QStringLiteral("-recolor %1").arg(swaps[pair])});
    for (int direction = 0; direction < 8; ++direction)
        cases.push_back({"16 Color Emboss, eight directions",
                         [=](auto& e) { return e.FxColorEmboss(direction, false); }, Correlate(Relief(direction)),
                         QStringLiteral("-convolve %1").arg(Relief(direction))});
    for (int kernel = 0; kernel < 3; ++kernel)
        cases.push_back({"25 High Pass, three kernels", [=](auto& e) { return e.FxHighPass(kernel, false); },
                         Correlate(kHighPass[kernel]), QStringLiteral("-convolve %1").arg(kHighPass[kernel])});
    for (int kernel = 0; kernel < 17; ++kernel) {
        cases.push_back({"40 Special Filter, seventeen kernels",
                         [=](auto& e) { return e.FxSpecialFilter(kernel, 127, false); },
                         Correlate(kSpecialFilter[kernel], 127), ""});
        cases.push_back(
            {"40 Special Filter, nothing added", [=](auto& e) { return e.FxSpecialFilter(kernel, 0, false); },
             Correlate(kSpecialFilter[kernel]), QStringLiteral("-convolve %1").arg(kSpecialFilter[kernel])});
    }
    return cases;
}

// A photograph and a picture by rule, whose sides blocks of ten pixels divide.
std::vector<QImage> Pictures() {
    return {QImage(QStringLiteral(KELU_SOURCE_DIR "/Gallery/coffee.jpg")).convertToFormat(QImage::Format_RGB32),
            SamplePicture(70, 50)};
}

// A PPM file of 16 bits a channel, brought to 8 by rounding. (At 8 bits both programs write what is left after cutting
// off the lower ones.)
QImage ReadWidePpm(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray all = file.readAll();
    static const QRegularExpression kHeader(QStringLiteral("^P6\\s(\\d+) (\\d+)\\s65535\\s"));
    const auto header = kHeader.match(QString::fromLatin1(all.left(40)));
    QImage image(header.captured(1).toInt(), header.captured(2).toInt(), QImage::Format_RGB32);
    if (all.size() != header.capturedLength() + qsizetype{6} * image.width() * image.height()) return {};
    const char* at = all.constData() + header.capturedLength();
    const auto level = [&at] {
        const int value = qFromBigEndian<quint16>(at);
        at += 2;
        return (value + 128) / 257;
    };
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int red = level(), green = level(), blue = level();
            image.setPixel(x, y, qRgb(red, green, blue));
        }
    return image;
}

// How far the pictures of one row of the table are apart.
struct Distance {
    int largest = 0;  // levels of a channel
    int pixels = 0;   // that differ

    void Add(const QImage& a, const QImage& b) {
        ASSERT_EQ(a.size(), b.size());
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) {
                const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
                const int difference = std::max(
                    {std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
                largest = std::max(largest, difference);
                if (difference > 0) ++pixels;
            }
    }

    QString InWords() const {
        if (largest == 0) return QStringLiteral("equal");
        return QStringLiteral("within %1, at %2 pixels").arg(largest).arg(pixels);
    }
};

// A program's cells of the table, by the name of the row.
QMap<QString, QString> Stated(int column) {
    QFile file(QStringLiteral(KELU_SOURCE_DIR "/docs/conformance.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QMap<QString, QString> stated;
    static const QRegularExpression kRow(QStringLiteral("^\\| (\\d+ [^|]*?) *\\|"));
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
        if (const auto match = kRow.match(line); match.hasMatch())
            if (const QString cell = line.section('|', column, column).trimmed(); cell != QStringLiteral("-"))
                stated[match.captured(1)] = cell;
    return stated;
}

// A program's run with these arguments and this on its standard input; what it says.
QString Answer(const QString& program, const QStringList& arguments, const QString& input = {}) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.write(input.toLocal8Bit());
    process.closeWriteChannel();
    if (!process.waitForFinished(60000)) return QStringLiteral("did not answer");
    return QString::fromLocal8Bit(process.readAll());
}

// A program makes many pictures of one: options[i], where there are any, go to the file OutName(i).
using Tool = std::function<QString(const QString& in, const QStringList& options)>;

QString OutName(const QString& in, qsizetype i) { return QStringLiteral("%1.%2.ppm").arg(in).arg(i); }

QString RunImageMagick(const QString& in, const QStringList& options) {
    QStringList arguments{in, QStringLiteral("-respect-parenthesis")};
    for (qsizetype i = 0; i < options.size(); ++i)
        if (!options[i].isEmpty())
            arguments += QStringLiteral("( +clone %1 -depth 16 -write %2 +delete )")
                             .arg(options[i], OutName(in, i))
                             .split(' ', Qt::SkipEmptyParts);
    return Answer(QStringLiteral("convert"), arguments << QStringLiteral("null:"));
}

QString RunGraphicsMagick(const QString& in, const QStringList& options) {
    QString commands;
    for (qsizetype i = 0; i < options.size(); ++i)
        if (!options[i].isEmpty())
            commands += QStringLiteral("convert %1 %2 -depth 16 %3\n").arg(in, options[i], OutName(in, i));
    return Answer(QStringLiteral("gm"), {QStringLiteral("batch"), QStringLiteral("-")}, commands);
}

void ExpectAsStated(const Tool& tool, QString Case::*wanted, int column) {
    const QTemporaryDir folder;
    const QString in = folder.filePath(QStringLiteral("in"));
    const std::vector<Case> cases = Cases();
    QStringList options;
    for (const Case& row : cases) options << row.*wanted;

    QMap<QString, Distance> measured;
    for (const QImage& picture : Pictures()) {
        ASSERT_TRUE(picture.save(in, "PPM"));
        const QString said = tool(in, options);
        for (std::size_t i = 0; i < cases.size(); ++i) {
            if ((cases[i].*wanted).isEmpty()) continue;
            const QImage theirs = ReadWidePpm(OutName(in, static_cast<qsizetype>(i)));
            ASSERT_FALSE(theirs.isNull()) << qPrintable((cases[i].*wanted) + ": " + said);
            PixTwix engine;
            engine.SetPicture(picture);
            ASSERT_TRUE(cases[i].call(engine));
            measured[cases[i].name].Add(engine.Picture(), theirs);
            QFile::remove(OutName(in, static_cast<qsizetype>(i)));
        }
    }

    QMap<QString, QString> stated = Stated(column);
    EXPECT_EQ(stated.size(), measured.size()) << "each row of the test is a line of the table, and the other way round";
    for (auto row = measured.begin(); row != measured.end(); ++row)
        EXPECT_EQ(stated[row.key()].toStdString(), row.value().InWords().toStdString()) << qPrintable(row.key());
}

TEST(Conformance, ImageMagickAgreesAsTheDocumentStates) {
    if (!Answer("convert", {"-version"}).contains("Version: ImageMagick 6.9.11"))
        GTEST_SKIP() << "ImageMagick 6.9.11, with which the table was measured, is missing";
    ExpectAsStated(RunImageMagick, &Case::imageMagick, 2);
}

TEST(Conformance, GraphicsMagickAgreesAsTheDocumentStates) {
    if (!Answer("gm", {"version"}).contains("GraphicsMagick 1.3.40"))
        GTEST_SKIP() << "GraphicsMagick 1.3.40, with which the table was measured, is missing";
    ExpectAsStated(RunGraphicsMagick, &Case::graphicsMagick, 3);
}

}  // namespace
}  // namespace kelu
