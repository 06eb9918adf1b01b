// kelu-cli convert: any readable picture to any writable format, PDF included.
// SPDX-License-Identifier: MIT
#include "canvas/surface.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "output/pdf/pdf_export.h"

namespace kelu::cli {

int ConvertCommand(const QStringList& words) {
    const Arguments arguments = Parse(words, {}, {});
    if (arguments.words.size() != 2) throw UsageError(QStringLiteral("convert takes IN and OUT"));
    const QString in = arguments.words[0];
    const QString out = arguments.words[1];
    Surface surface;
    if (!RunForFile(in, [&] { surface.LoadFile(in); })) return kFailed;
    const bool written = RunForFile(out, [&] {
        if (out.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
            WritePdf(surface.Picture(), out, KeluPdfProperties());
        else
            surface.SaveFile(out);
    });
    return written ? kDone : kFailed;
}

}  // namespace kelu::cli
