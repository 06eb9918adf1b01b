// The decoders behind ReadPicture, one per family of formats. All throw Error, and take memory only after the size was
// checked.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>

#include "pictures/picture_format.h"

namespace kelu {

struct DecodedPicture {
    QImage image;         ///< as decoded: not turned, colours as in the file
    QByteArray profile;   ///< embedded ICC profile of the colours in `image`; empty: none
    int orientation = 1;  ///< EXIF, 1 to 8
    QSize fileSize = {};  ///< pixels of the picture in the file, when `image` is a smaller one
};

/// With a non-empty `box` the picture may come smaller, but not below that size.
DecodedPicture DecodeJpeg(const QByteArray& bytes, const QSize& box);
/// First frame, placed on the whole screen of the file.
DecodedPicture DecodeGif(const QByteArray& bytes);
/// bmp, png and tif by the toolkit.
DecodedPicture DecodeWithQt(QIODevice& device, PictureFormat format);
/// pcx, psd and tga.
DecodedPicture DecodeWithMagick(const QByteArray& bytes, PictureFormat format);

}  // namespace kelu
