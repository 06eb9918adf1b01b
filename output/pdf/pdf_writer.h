// A PDF document of one page that holds one picture, every pixel as it is.
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QImage>
#include <QRectF>
#include <QString>
#include <functional>

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

/// Told now and then, on any thread: the part of the picture that is written, 0 to 1. False gives the work up.
using PdfProgress = std::function<bool(double part)>;

/// Throws Error: kInvalidPicture without a picture, kFileError when the device doesn't take all bytes. Transparency is
/// laid over white. Returns false when `progress` gave it up; what was written then is no document.
bool WritePdfPage(QIODevice& device, const QImage& picture, const PdfPage& page, const PdfProperties& properties,
                  const PdfProgress& progress = {});

}  // namespace kelu
