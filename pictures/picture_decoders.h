// What the rows of the picture formats point to for reading: see PictureFormat for what each kind of function promises.
// Decoders take memory only after the size was checked.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include "pictures/picture_format.h"

namespace kelu {

bool IsBmp(const QByteArray& head, qint64 fileSize);
void CheckBmp(PictureInput& input);
DecodedPicture DecodeBmp(PictureInput& input);

/// First frame, placed on the whole screen of the file.
DecodedPicture DecodeGif(PictureInput& input);

DecodedPicture DecodeJpeg(PictureInput& input);

DecodedPicture DecodePng(PictureInput& input);

bool IsTiff(const QByteArray& head, qint64 fileSize);
void CheckTiff(PictureInput& input);
DecodedPicture DecodeTiff(PictureInput& input);
void DescribeTiff(PictureInput& input, Metadata& metadata);

bool IsPcx(const QByteArray& head, qint64 fileSize);
void CheckPcx(PictureInput& input);
/// One bit a pixel, which the second reader shows with its colours swapped.
DecodedPicture DecodeBlackAndWhitePcx(PictureInput& input);

void CheckPsd(PictureInput& input);
/// 8-bit pictures with a palette, which the second reader refuses.
DecodedPicture DecodeIndexedPsd(PictureInput& input);
/// The merged picture, whatever the layers are.
DecodedPicture DecodeMergedPsd(PictureInput& input);
void DescribePsd(PictureInput& input, Metadata& metadata);

/// TGA has no signature and is told by the plausibility of its header.
bool IsTga(const QByteArray& head, qint64 fileSize);
DecodedPicture DecodeTga(PictureInput& input);

bool IsWebp(const QByteArray& head, qint64 fileSize);
void CheckWebp(PictureInput& input);
DecodedPicture DecodeWebp(PictureInput& input);

/// AVIF files name the brand of HEIC, too, so they are told first.
bool IsAvif(const QByteArray& head, qint64 fileSize);
bool IsHeic(const QByteArray& head, qint64 fileSize);

/// By the module of the row, or the named one, which is loaded when first needed.
DecodedPicture DecodeWithModule(PictureInput& input);
DecodedPicture DecodeWithModule(PictureInput& input, const char* module, QLatin1String formatName);

/// Of a camera's raw file the preview. Most kinds are TIFF files that tell of raw data; the others have marks of their
/// own.
inline constexpr const char* kRawModule = "raw";
bool IsCameraRaw(const QByteArray& head, qint64 fileSize);
DecodedPicture DecodeRawTiff(PictureInput& input);

/// By the toolkit's reader of the row, straight into pooled memory where that lets the caller bring it. The colours
/// are those of the file; a profile other than sRGB is in the metadata.
DecodedPicture DecodeWithToolkit(PictureInput& input);

/// The second reader: ImageMagick with the coder of the row named and limits set.
DecodedPicture DecodeWithMagick(PictureInput& input);
DecodedPicture DecodeWithMagick(const QByteArray& bytes, const char* coder);

}  // namespace kelu
