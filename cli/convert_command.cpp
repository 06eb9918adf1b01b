// kelu-cli convert: any readable picture to any writable format, PDF included.
// SPDX-License-Identifier: MIT
#include "cli/batch.h"
#include "cli/command_line.h"
#include "cli/commands.h"
#include "document/document.h"

namespace kelu::cli {

int ConvertCommand(const QStringList& words) {
    const Arguments arguments = Parse(words, Batch::Options(), Batch::Flags());
    return Batch(arguments, arguments.words).Run("convert", [](const QString& in, Surfaces& made) {
        made.picCanvas.LoadFile(in);
    });
}

}  // namespace kelu::cli
