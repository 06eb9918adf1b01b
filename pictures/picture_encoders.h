// The encoders behind WritePicture, one per format. The picture is RGB32 or ARGB32; formats without transparency get
// it over white. They throw Error(kFileError); when it was the device that failed, its error string tells more.
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>
#include <QImage>

namespace kelu {

void EncodeBmp(const QImage& picture, QIODevice& device);
void EncodeGif(const QImage& picture, QIODevice& device);
void EncodeJpeg(const QImage& picture, QIODevice& device);
void EncodePng(const QImage& picture, QIODevice& device);
void EncodeTiff(const QImage& picture, QIODevice& device);

/// The picture over white, RGB32; the same pixels when it has no transparency.
QImage OverWhite(const QImage& picture);

/// Throws Error(kFileError) when the device did not take all bytes.
void WriteAll(QIODevice& device, const char* bytes, qint64 count);

}  // namespace kelu
