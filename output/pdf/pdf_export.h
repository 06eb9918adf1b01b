// Saving as PDF: the whole picture without loss on a page of its size, with the document's properties, and the
// confirmation that offers to open the file.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <functional>

#include "canvas/surface.h"
#include "output/pdf/pdf_writer.h"
#include "platform/msg_dialog.h"
#include "platform/run_beside.h"

namespace kelu {

/// "Kelu v1.0.0 | address of the web page"
QString PdfVersionText();
PdfProperties KeluPdfProperties();

/// Writes one page of the picture's size (pixels x 72 / dpi points) that embeds its pixels without loss, transparency
/// over white. The file is replaced in one step whatever its extension. Throws Error; the old file then stands.
void WritePdf(const QImage& picture, const QString& path, const PdfProperties& properties);

class PdfExport {
 public:
    /// `beside` runs the writing.
    PdfExport(Surface& picCanvas, MsgDialog& dialog, std::function<bool(const QString&)> openDocument, Beside beside)
        : picCanvas_(picCanvas), dialog_(dialog), openDocument_(std::move(openDocument)), beside_(std::move(beside)) {}

    /// Writes the canvas to `path` and says so. A failure shows the standard error message; false when nothing was
    /// written. Throws WorkCancelled when the user left it; the old file then stands.
    bool CreatePDF(const QString& path);

 private:
    /// Tells that the file is there and opens it if the user ticks the box.
    void LaunchPDF(const QString& path);

    Surface& picCanvas_;
    MsgDialog& dialog_;
    std::function<bool(const QString&)> openDocument_;
    Beside beside_;
};

}  // namespace kelu
