// The TIFF library on an open device.
// SPDX-License-Identifier: MIT
#pragma once

#include <tiffio.h>

#include <QIODevice>
#include <memory>

namespace kelu {

struct CloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, CloseTiff>;

/// `mode` as of TIFFOpen; the device must live as long as the handle. Null when the library refuses the file. The
/// library tells nothing on standard error: a failure is told once, by us.
TiffHandle OpenTiff(QIODevice& device, const char* mode);

}  // namespace kelu
