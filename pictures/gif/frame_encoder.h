// One frame as a GIF file of its own, and such a file as a picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include "pictures/gif/frame_strip.h"

namespace kelu {

/// A GIF89a file with the one picture. `indices` is Format_Indexed8 of at most 65535 x 65535 pixels, its own colour
/// table is not used. `transparentIndex` -1: none.
QByteArray EncodeGif(const QImage& indices, const ColourTable& colours, int transparentIndex);

/// The first image of a GIF file, Format_Indexed8 with its 256 colours; null if there is none.
QImage PictureFromBytes(const QByteArray& gifBytes);

/// Frame `frame` (from 1) alone, through a GIF file and back, as a picture; null if the frame does not exist or could
/// not be decoded.
QImage EncodeFrameAsPicture(const FrameStrip& strip, int frame);

}  // namespace kelu
