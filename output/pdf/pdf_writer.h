// A PDF document of one page that holds one picture, every pixel as it is.
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QImage>
#include <QRectF>
#include <QString>

namespace kelu {

struct PdfProperties {
    QString creator;
    QString author;
    QString keywords;
    QString title;
    QString subject;
};

/// In points, 1/72 inch.
struct PdfPage {
    QSizeF size;
    QRectF picture;  ///< from the upper left corner; may reach beyond the page
};

/// Throws Error: kInvalidPicture without a picture, kFileError when the device doesn't take all bytes. Transparency is
/// laid over white. Reports as work does (WorkReport).
void WritePdfPage(QIODevice& device, const QImage& picture, const PdfPage& page, const PdfProperties& properties);

}  // namespace kelu
