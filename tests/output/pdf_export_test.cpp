// PDF files as independent tools see them: page, embedded pixels, properties; and the words that follow.
// SPDX-License-Identifier: MIT
#include "output/pdf/pdf_export.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <random>

#include "tests/support/kit.h"
#include "tests/support/scripted_dialog.h"
#include "tests/support/tools.h"

namespace kelu {
namespace {

using testing::HasSubstr;

/// Noise in tiles: as a drawing with small ones, as a photograph with one.
QImage Tiles(int width, int height, int tile) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            std::minstd_rand random(static_cast<unsigned>(x % tile + y % tile * 7919 + 1));
            random.discard(3);
            image.setPixel(x, y, static_cast<QRgb>(random()) | 0xff000000u);
        }
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
    const QString path = folder.filePath("a page.pdf");
};

TEST_F(PdfTest, IndependentToolsFindPageAndProperties) {
    KELU_NEEDS("pdfinfo");
    QCoreApplication::setApplicationVersion("1.2.3");
    QImage picture = Tiles(301, 200, 1000);
    picture.setDotsPerMeterX(5906);  // 150 dpi
    picture.setDotsPerMeterY(5906);
    WritePdf(picture, path, KeluPdfProperties());
    const std::string info = Output("pdfinfo", {path});
    for (const char* line : {"Title:           Kelu Image", "Subject:         Kelu Image", "Author:          Kelu",
                             "Keywords:        Kelu v1.2.3 | ", "Creator:         Kelu v1.2.3 | ", "Pages:           1",
                             "144.468 x 95.9921"})
        EXPECT_THAT(info, HasSubstr(line));
}

TEST_F(PdfTest, EveryPixelLiesOnTheWhitePaper) {
    KELU_NEEDS("pdfimages", "qpdf");
    QImage clear(2, 1, QImage::Format_ARGB32);
    clear.setPixel(0, 0, 0x00123456);
    clear.setPixel(1, 0, 0xff123456);
    QImage onPaper(2, 1, QImage::Format_RGB32);
    onPaper.setPixel(0, 0, 0xffffffff);
    onPaper.setPixel(1, 0, 0xff123456);
    const QImage grey = Tiles(9, 9, 9).convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    const QImage wide = Tiles(40000, 2, 40000);      // beyond what fits in 15 bits
    const QImage photograph = Tiles(700, 900, 900);  // more rows than are deflated at a time, as below
    const QImage drawing = Tiles(1500, 1000, 50);
    for (const auto& [picture, expected] : std::initializer_list<std::pair<QImage, QImage>>{
             {clear, onPaper}, {grey, grey}, {wide, wide}, {photograph, photograph}, {drawing, drawing}}) {
        WritePdf(picture, path, {});
        Output("pdfimages", {"-png", path, folder.filePath("image")});
        const QImage found(folder.filePath("image-000.png"));
        EXPECT_EQ(found.convertToFormat(QImage::Format_RGB32), expected) << expected.width();
        EXPECT_THAT(Output("qpdf", {"--check", path}), HasSubstr("No syntax or stream encoding errors"));
    }
}

TEST_F(PdfTest, TheUserIsToldAndAskedAndAFailureLeavesNothing) {
    Surface canvas;
    canvas.SetPicture(Tiles(20, 20, 20));
    ScriptedDialog dialog;
    QStringList opened;
    PdfExport pdf(
        canvas, dialog, [&](const QString& file) { return opened << file, true; },
        [](const std::function<void()>& run) { run(); });
    pdf.CreatePDF(folder.filePath("no/such/folder.pdf"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    const QString odd = folder.filePath("page.png");  // the extension plays no part
    for (const bool ticks : {false, true}) {
        dialog.ticks = ticks;
        pdf.CreatePDF(odd);
        EXPECT_EQ(opened, ticks ? QStringList{odd} : QStringList());
    }
    ASSERT_EQ(dialog.shown.size(), 3u);
    EXPECT_EQ(dialog.shown[0].heading, "Error");
    EXPECT_EQ(dialog.shown[1].text, "PDF file 'page.png' created successfully!");
    EXPECT_EQ(dialog.shown[1].title, "Information");
    EXPECT_EQ(dialog.beeps, 2);
    EXPECT_TRUE(ReadBytes(odd).startsWith("%PDF-"));
}

}  // namespace
}  // namespace kelu
