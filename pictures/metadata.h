// What a picture file tells beside its pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace kelu {

/// Travels beside the picture from the reader of its file. The resolution stays with the QImage.
struct Metadata {
    int orientation = 1;  ///< EXIF, 1 to 8: how the pixels of the file must be turned to stand upright
    QByteArray profile;   ///< embedded ICC profile of the pixels of the file; empty: none
};

}  // namespace kelu
