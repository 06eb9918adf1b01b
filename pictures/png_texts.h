// What stands in the text chunks of PNG files: lines of text, and EXIF, XMP and IPTC under names of their own.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <functional>

#include "pictures/metadata.h"

namespace kelu {

/// Puts one text of a file where it belongs; what is no news to anybody (dates of files, thumbnails) is left out.
void TakePngText(const PictureText& text, Metadata& metadata);

/// The chunks that hold all of the metadata as it is true for the picture.
void PutPngChunks(const Metadata& metadata, const QImage& picture,
                  const std::function<void(const char* name, const QByteArray& data)>& put);

}  // namespace kelu
