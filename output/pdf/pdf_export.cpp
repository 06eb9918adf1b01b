// SPDX-License-Identifier: MIT
#include "output/pdf/pdf_export.h"

#include <QCoreApplication>
#include <algorithm>

#include "document/document.h"
#include "output/pdf/page_layout.h"
#include "output/pdf/product.h"
#include "pictures/picture_texts.h"
#include "platform/atomic_file.h"
#include "platform/error.h"

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::PdfExport)
};

constexpr double kPointsPerInch = 72;
constexpr double kLargestPage = 14400;  // points; readers refuse more

/// A page of the picture's size. One beyond the limit of PDF readers shrinks; its pixels stay.
PdfPage PageFor(const QImage& picture) {
    QSizeF size(picture.width() * kPointsPerInch / DotsPerInch(picture.dotsPerMeterX()),
                picture.height() * kPointsPerInch / DotsPerInch(picture.dotsPerMeterY()));
    size *= std::min(1.0, kLargestPage / std::max({size.width(), size.height(), 1.0}));
    return {size, QRectF(QPointF(), size)};
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
    if (picture.isNull()) throw Error(kInvalidPicture, PictureTexts::tr("There is no picture to save"));
    AtomicFile(path).FillAndCommit([&](QFile& file) { WritePdfPage(file, picture, PageFor(picture), properties); });
}

bool PdfExport::CreatePDF(const QString& path) {
    bool written = false, left = false;
    RunShowingErrors(dialog_, [&] {
        try {
            beside_([&, picture = picCanvas_.Picture()] { WritePdf(picture, path, KeluPdfProperties()); });
        } catch (const WorkCancelled&) {
            left = true;
            return;
        }
        written = true;
        LaunchPDF(path);
    });
    if (left) throw WorkCancelled();
    return written;
}

void PdfExport::LaunchPDF(const QString& path) {
    dialog_.Beep();
    const MsgReply reply = dialog_.ShowMessage(
        {Texts::tr("Information"), Texts::tr("PDF file '%1' created successfully!").arg(FileNameOfPath(path)),
         MsgIcon::Information, MsgButtons::Ok, Texts::tr("View PDF File"), Texts::tr("Information")});
    if (reply.ticked) openDocument_(path);
}

}  // namespace kelu
