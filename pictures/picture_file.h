// Pictures on disk: reading by content, writing by extension, both whole or not at all.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include "pictures/picture_format.h"

namespace kelu {

/// Reads a picture of any row of PictureFormats, told by content whatever the name; of a GIF the first frame.
/// Orientation tags are obeyed, colours are sRGB, the resolution is kept. RGB32 without transparency, else ARGB32.
/// Throws Error: kFileError (cannot be opened), kInvalidPicture (no picture, damaged), kEndOfFile (cut short),
/// kOutOfMemory (too large).
QImage ReadPicture(const QString& path);
/// The same with what the file told beside the pixels.
Photograph ReadPhotograph(const QString& path);

/// The picture shrunk to fit `box` (pixels), never enlarged; faster than reading it whole where the format allows it.
/// Throws as ReadPicture.
QImage ReadThumbnail(const QString& path, const QSize& box);

/// Writes in the format that the extension tells; see FormatToWrite. The file appears whole or the old one stays.
/// Throws Error(kFileError).
void WritePicture(const QImage& picture, const QString& path, const WriteOptions& options = {});

/// Whether WritePicture knows the extension of `path`.
bool CanWritePicture(const QString& path);

}  // namespace kelu
