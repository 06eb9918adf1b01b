// The two things of EXIF data that a picture needs: how to turn it, and its resolution.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace kelu {

struct Exif {
    int orientation = 1;       ///< 1 to 8
    double dotsPerMeterX = 0;  ///< 0: not told
    double dotsPerMeterY = 0;
};

/// `tiff` begins with the byte order mark ("II" or "MM"). Damaged data gives what could be read, never an error: a
/// picture is not lost for a bad tag.
Exif ReadExif(const QByteArray& tiff);

}  // namespace kelu
