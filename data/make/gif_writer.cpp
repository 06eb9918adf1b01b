// Frames of the encoder, chained to one file.
// SPDX-License-Identifier: MIT
#include "data/make/gif_writer.h"

#include "pictures/gif/frame_encoder.h"

namespace kelu {
namespace {

constexpr qsizetype kTablesEnd = 13 + 3 * 256;  // header, screen and colours of a file of EncodeGif

}  // namespace

QByteArray WriteAnimation(const std::vector<QImage>& frames, const ColourTable& colours, int delayMs) {
    QByteArray file;
    for (const QImage& frame : frames) {
        const QByteArray single = EncodeGif(frame, colours, -1);
        if (file.isEmpty()) {
            file = single.left(kTablesEnd);
            file += QByteArray("\x21\xFF\x0BNETSCAPE2.0\x03\x01\x00\x00\x00", 19);
        }
        const char delay = static_cast<char>(delayMs / 10);
        file += QByteArray("\x21\xF9\x04\x04", 4) + delay + QByteArray("\0\0\0", 3);  // the frame stays
        file += single.mid(kTablesEnd).chopped(1);
    }
    return file + '\x3B';
}

}  // namespace kelu
