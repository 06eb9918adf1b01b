// Decoders that are loaded when first needed: their libraries would make every start slower for pictures that most days
// don't bring. A module is a shared library beside the program, in its folder "codecs".
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <cstdint>

#include "pictures/bytes.h"
#include "pictures/metadata.h"

namespace kelu {

/// What a module may ask of the program; all of it may throw Error, through the module's frames.
struct CodecHost {
    /// See MakePicture; checks the size, too.
    QImage (*makePicture)(int width, int height, QImage::Format format);
    void (*checkSize)(std::int64_t width, std::int64_t height);
    void (*throwCutShort)();
    void (*throwDamaged)();
    /// A whole JPEG file, as decoded: not turned, colours as in the file.
    void (*decodeJpeg)(const QByteArray& bytes, QImage& image, Metadata& metadata);
};

/// The one function that a module exports, under this name, with C linkage: decodes `bytes` into `image` (RGB32 or
/// ARGB32) and `metadata`. A null image: this is no file of the module's kind.
using DecodeFunction = void (*)(const QByteArray& bytes, const CodecHost& host, QImage& image, Metadata& metadata);
inline constexpr const char* kDecodeFunction = "KeluDecode";

/// EXIF data as these formats keep it: the distance to its begin stands before it.
inline QByteArray ExifOfBox(const QByteArray& box) { return box.mid(4 + qint64{BigEndian(box, 0, 4)}); }

}  // namespace kelu
