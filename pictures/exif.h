// EXIF data: what a picture needs of it, and what of it goes along into the file of another picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include "pictures/tiff_tags.h"

namespace kelu {

struct Exif {
    int orientation = 1;       ///< 1 to 8
    double dotsPerMeterX = 0;  ///< 0: not told
    double dotsPerMeterY = 0;
};

/// `block` begins with the byte order mark ("II" or "MM"). Damaged data gives what could be read, never an error: a
/// picture is not lost for a bad tag.
Exif ReadExif(const QByteArray& block);

/// The tags as they are true for `picture`, upright and in sRGB: orientation, sizes, resolution, colours; without
/// thumbnails and without what tells how the pixels of the old file lay. Of an empty block just these.
TiffTags ExifFor(const QByteArray& block, const QImage& picture);

/// The same as a block. Where it is longer than `most` bytes, the longest values are left out.
QByteArray ExifBlockFor(const QByteArray& block, const QImage& picture, qsizetype most);

/// The tags that tell of a photograph, out of the main directory of a TIFF file, as a block; empty: none.
QByteArray ExifOfTiff(TiffTags tags);

/// Without the place and the maker's note, which may tell it too.
QByteArray ExifWithoutPlace(const QByteArray& block);

}  // namespace kelu
