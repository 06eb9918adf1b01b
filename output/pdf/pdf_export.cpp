// SPDX-License-Identifier: MIT
#include "output/pdf/pdf_export.h"

#include <cairo-pdf.h>

#include <QCoreApplication>
#include <algorithm>
#include <memory>

#include "document/document.h"
#include "output/pdf/product.h"
#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kInchesPerMetre = 0.0254;
constexpr double kScreenResolution = 96;  // dpi, where the picture tells none
constexpr double kLargestPage = 14400;    // points; readers refuse more
constexpr int kLargestSide = 32767;       // pixels; the drawing library's limit

template <typename Handle, void (*Release)(Handle*)>
struct Releaser {
    void operator()(Handle* handle) const { Release(handle); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_t, cairo_surface_destroy>>;
using Cairo = std::unique_ptr<cairo_t, Releaser<cairo_t, cairo_destroy>>;

void Check(cairo_status_t status) {
    if (status != CAIRO_STATUS_SUCCESS)
        throw Error(status == CAIRO_STATUS_NO_MEMORY ? kOutOfMemory : kFileError,
                    QString::fromUtf8(cairo_status_to_string(status)), QStringLiteral("WritePdf"));
}

cairo_status_t WriteBytes(void* file, const unsigned char* bytes, unsigned int count) {
    const auto written = static_cast<QFile*>(file)->write(reinterpret_cast<const char*>(bytes), count);
    return written == static_cast<qint64>(count) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

/// The picture as it lies on white paper, in the drawing library's own layout.
QImage OnPaper(const QImage& picture) {
    if (picture.format() == QImage::Format_RGB32) return picture;
    Surface paper;
    paper.CreateBlank(picture.width(), picture.height(), 24, Qt::white);
    paper.DrawBitmap(picture, 0, 0, 255);
    return paper.Picture();
}

double PointsPerPixel(int dotsPerMetre) {
    const double dpi = dotsPerMetre > 0 ? dotsPerMetre * kInchesPerMetre : kScreenResolution;
    return kPointsPerInch / dpi;
}

/// The document with its one page; the scales are points per pixel.
void DrawPage(const QImage& paper, double scaleX, double scaleY, const PdfProperties& properties, QFile& file) {
    const CairoSurface page(
        cairo_pdf_surface_create_for_stream(WriteBytes, &file, paper.width() * scaleX, paper.height() * scaleY));
    Check(cairo_surface_status(page.get()));
    const auto describe = [&](cairo_pdf_metadata_t name, const QString& text) {
        cairo_pdf_surface_set_metadata(page.get(), name, text.toUtf8().constData());
    };
    describe(CAIRO_PDF_METADATA_TITLE, properties.title);
    describe(CAIRO_PDF_METADATA_AUTHOR, properties.author);
    describe(CAIRO_PDF_METADATA_SUBJECT, properties.subject);
    describe(CAIRO_PDF_METADATA_KEYWORDS, properties.keywords);
    describe(CAIRO_PDF_METADATA_CREATOR, properties.creator);

    const CairoSurface pixels(cairo_image_surface_create_for_data(const_cast<unsigned char*>(paper.constBits()),
                                                                  CAIRO_FORMAT_RGB24, paper.width(), paper.height(),
                                                                  static_cast<int>(paper.bytesPerLine())));
    Check(cairo_surface_status(pixels.get()));
    const Cairo pen(cairo_create(page.get()));
    cairo_scale(pen.get(), scaleX, scaleY);
    cairo_set_source_surface(pen.get(), pixels.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(pen.get()), CAIRO_FILTER_NEAREST);
    cairo_paint(pen.get());
    Check(cairo_status(pen.get()));
    cairo_surface_show_page(page.get());
    cairo_surface_finish(page.get());
    Check(cairo_surface_status(page.get()));
}

}  // namespace

QString PdfVersionText() {
    return QStringLiteral("Kelu v%1 | %2").arg(QCoreApplication::applicationVersion(), QLatin1String(kProductPage));
}

PdfProperties KeluPdfProperties() {
    return {PdfVersionText(), QStringLiteral("Kelu"), PdfVersionText(), QStringLiteral("Kelu Image"),
            QStringLiteral("Kelu Image")};
}

void WritePdf(const QImage& picture, const QString& path, const PdfProperties& properties) {
    if (picture.isNull()) throw Error(kInvalidPicture, QStringLiteral("There is no picture to save"));
    if (std::max(picture.width(), picture.height()) > kLargestSide)
        throw Error(kOutOfMemory, QStringLiteral("The picture is too large for a PDF page"));
    const QImage paper = OnPaper(picture);
    double scaleX = PointsPerPixel(picture.dotsPerMeterX());
    double scaleY = PointsPerPixel(picture.dotsPerMeterY());
    // A page beyond the limit of PDF readers shrinks; its pixels stay.
    const double shrink = std::min(1.0, kLargestPage / std::max(paper.width() * scaleX, paper.height() * scaleY));
    scaleX *= shrink;
    scaleY *= shrink;

    AtomicFile(path).FillAndCommit([&](QFile& file) { DrawPage(paper, scaleX, scaleY, properties, file); });
}

void PdfExport::CreatePDF(const QString& path) {
    RunShowingErrors(dialog_, [&] {
        WritePdf(picCanvas_.Picture(), path, KeluPdfProperties());
        LaunchPDF(path);
    });
}

void PdfExport::LaunchPDF(const QString& path) {
    dialog_.Beep();
    dialog_.SetShowCheckbox(true);
    dialog_.SetAboutStyle(false);
    dialog_.SetCheckboxCaption(QStringLiteral("View PDF File"));
    dialog_.ShowMessage(QStringLiteral("Information"),
                        QStringLiteral("PDF file '%1' created successfully!").arg(FileNameOfPath(path)), MsgDialog::kOk,
                        QStringLiteral("Information"), MsgIcon::Information);
    if (dialog_.CheckboxValue()) {
        openDocument_(path);
        dialog_.SetCheckboxValue(false);
    }
}

}  // namespace kelu
