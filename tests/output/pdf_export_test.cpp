// PDF files as independent tools see them: page, embedded pixels, properties; and the words that follow.
// SPDX-License-Identifier: MIT
#include "output/pdf/pdf_export.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <csignal>
#include <random>

#include "platform/error.h"
#include "tests/support/scripted_dialog.h"

namespace kelu {
namespace {

using testing::HasSubstr;

QImage Noise(int width, int height, QImage::Format format) {
    QImage image(width, height, format);
    std::mt19937 random(7);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, static_cast<QRgb>(random()) | (format == QImage::Format_RGB32 ? 0xff000000u : 0u));
    return image;
}

/// Tiles that repeat, over more rows than are deflated at a time.
QImage Drawing() {
    QImage image(1500, 1000, QImage::Format_RGB32);
    const QImage tile = Noise(50, 50, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, tile.pixel(x % 50, y % 50));
    return image;
}

std::string Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput().toStdString();
}

struct PdfTest : testing::Test {
    QTemporaryDir folder;
    QString path = folder.filePath("a page.pdf");

    QByteArray Bytes() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(PdfTest, IndependentToolsFindPagePixelsAndProperties) {
    if (QStandardPaths::findExecutable("pdfimages").isEmpty()) GTEST_SKIP() << "poppler-utils is not installed";
    QCoreApplication::setApplicationVersion("1.2.3");
    QImage picture = Noise(301, 200, QImage::Format_RGB32);
    picture.setDotsPerMeterX(5906);  // 150 dpi
    picture.setDotsPerMeterY(5906);
    WritePdf(picture, path, KeluPdfProperties());

    const std::string info = Output("pdfinfo", {path});
    EXPECT_THAT(info, HasSubstr("Title:           Kelu Image"));
    EXPECT_THAT(info, HasSubstr("Subject:         Kelu Image"));
    EXPECT_THAT(info, HasSubstr("Author:          Kelu"));
    EXPECT_THAT(info, HasSubstr("Keywords:        Kelu v1.2.3 | "));
    EXPECT_THAT(info, HasSubstr("Creator:         Kelu v1.2.3 | "));
    EXPECT_THAT(info, HasSubstr("Pages:           1"));
    EXPECT_THAT(info, HasSubstr("144.468 x 95.9921"));
}

TEST_F(PdfTest, EveryPixelLiesOnTheWhitePaper) {
    if (QStandardPaths::findExecutable("pdfimages").isEmpty()) GTEST_SKIP() << "poppler-utils is not installed";
    QImage clear(2, 1, QImage::Format_ARGB32);
    clear.setPixel(0, 0, 0x00123456);
    clear.setPixel(1, 0, 0xff123456);
    QImage onPaper(2, 1, QImage::Format_RGB32);
    onPaper.setPixel(0, 0, 0xffffffff);
    onPaper.setPixel(1, 0, 0xff123456);
    const QImage grey = Noise(9, 9, QImage::Format_RGB32).convertToFormat(QImage::Format_Grayscale8);
    const QImage noise = Noise(301, 200, QImage::Format_RGB32);
    const QImage wide = Noise(40000, 2, QImage::Format_RGB32);  // beyond what fits in 15 bits
    const QImage drawing = Drawing();
    for (const auto& [picture, expected] :
         std::initializer_list<std::pair<QImage, QImage>>{{clear, onPaper},
                                                          {grey.convertToFormat(QImage::Format_RGB32), grey},
                                                          {noise, noise},
                                                          {wide, wide},
                                                          {drawing, drawing}}) {
        SCOPED_TRACE(picture.width());
        WritePdf(picture, path, {});
        Output("pdfimages", {"-png", path, folder.filePath("image")});
        const QImage found(folder.filePath("image-000.png"));
        EXPECT_EQ(found.convertToFormat(QImage::Format_RGB32), expected.convertToFormat(QImage::Format_RGB32));
        EXPECT_THAT(Output("qpdf", {"--check", path}), HasSubstr("No syntax or stream encoding errors"));
    }
}

TEST_F(PdfTest, AFullDiskIsToldByNameAndLeavesTheOldFile) {
    const QImage picture = Noise(200, 200, QImage::Format_RGB32);
    WritePdf(picture, path, {});
    const QByteArray old = Bytes();
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{20000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    QString told;
    try {
        WritePdf(picture, path, {});
    } catch (const Error& error) {
        told = error.Description();
    }
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(told, path + ": File too large");
    EXPECT_EQ(Bytes(), old);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(PdfTest, AFailureLeavesNothingBehindAndIsTold) {
    Surface canvas;
    canvas.SetPicture(Noise(20, 20, QImage::Format_RGB32));
    ScriptedDialog dialog;
    QStringList opened;
    PdfExport pdf(canvas, dialog, [&](const QString& file) { return opened << file, true; });
    pdf.CreatePDF(folder.filePath("no/such/folder.pdf"));
    ASSERT_EQ(dialog.shown.size(), 1u);
    EXPECT_EQ(dialog.shown[0].heading, "Error");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());

    // The extension plays no part; the box starts unticked, and nothing is opened then.
    const QString odd = folder.filePath("page.png");
    pdf.CreatePDF(odd);
    ASSERT_EQ(dialog.shown.size(), 2u);
    EXPECT_EQ(dialog.shown[1].text, "PDF file 'page.png' created successfully!");
    EXPECT_EQ(dialog.shown[1].title, "Information");
    EXPECT_EQ(dialog.shown[1].checkbox, "View PDF File");
    EXPECT_EQ(dialog.beeps, 1);
    EXPECT_TRUE(opened.isEmpty());
    dialog.ticks = true;
    pdf.CreatePDF(odd);
    EXPECT_EQ(opened, QStringList{odd});
    QFile file(odd);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF-"));
}

}  // namespace
}  // namespace kelu
