// Picture-sized memory: a picture is a QImage on pooled memory, Format_RGB32 without transparency, else Format_ARGB32.
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>
#include <cstdint>

namespace kelu {

/// Most pixels of one picture (1 GiB at the start); files that claim more are refused before memory is taken.
std::int64_t MaxPicturePixels();
/// For who reads many files of doubtful origin and wants each done soon. Not while pictures are read.
void SetMaxPicturePixels(std::int64_t pixels);

/// Throws Error(kOutOfMemory) with the size in its text when a picture of this size (pixels) is too large, and
/// Error(kInvalidPicture) when a side is below 1.
void CheckPictureSize(std::int64_t width, std::int64_t height);

/// A picture with undefined contents on pooled memory, rows without gaps. `format` is one of 4 bytes a pixel.
/// Throws Error(kOutOfMemory) when memory is short or the size is out of range.
QImage MakePicture(int width, int height, QImage::Format format);

/// A copy on pooled memory, with the resolution of the source.
QImage CopyPicture(const QImage& picture);

/// Makes `picture` the only owner of its pixels; copies into pooled memory when they are shared.
void MakeUnique(QImage& picture);

/// The picture as RGB32 or ARGB32; the same pixels when it is one of these already.
QImage ToPictureFormat(const QImage& image);

/// Fills the alpha of every pixel; of RGB32 the unused byte, which what mixes pixels takes for alpha.
void MakeOpaque(QImage& picture);

/// Makes an ARGB32 picture RGB32 when its alpha tells nothing: opaque everywhere, or clear everywhere, as writers leave
/// it that fill the channel with 0. The picture is the only owner of its memory.
void DropIdleAlpha(QImage& picture);

/// The picture turned by the EXIF orientation (1 to 8; 1 and unknown values: as it is), on pooled memory.
QImage Orient(const QImage& picture, int orientation);

/// The picture at another size, each side at least 1: area averaging where it shrinks, smooth where it grows.
QImage ScalePicture(const QImage& picture, const QSize& size);

}  // namespace kelu
