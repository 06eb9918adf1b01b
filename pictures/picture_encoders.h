// What the rows of the picture formats point to for writing: see PictureFormat::encode.
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QImage>

#include "pictures/picture_format.h"

namespace kelu {

void EncodeBmp(const QImage& picture, const WriteOptions& options, QIODevice& device);
void EncodeGif(const QImage& picture, const WriteOptions& options, QIODevice& device);
void EncodeJpeg(const QImage& picture, const WriteOptions& options, QIODevice& device);
void EncodePng(const QImage& picture, const WriteOptions& options, QIODevice& device);
void EncodeTiff(const QImage& picture, const WriteOptions& options, QIODevice& device);
void EncodeWebp(const QImage& picture, const WriteOptions& options, QIODevice& device);

/// The picture over white, RGB32; the same pixels when it has no transparency.
QImage OverWhite(const QImage& picture);

/// Throws Error(kFileError) when the device did not take all bytes.
void WriteAll(QIODevice& device, const char* bytes, qint64 count);

}  // namespace kelu
