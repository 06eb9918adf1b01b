// Which picture format a file has, by its content, and whether the file is as long as its own headers say.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>

namespace kelu {

enum class PictureFormat { Unknown, Bmp, Gif, Jpeg, Png, Tiff, Pcx, Psd, Tga };

/// `head` is the first 32 bytes or more (all of a shorter file), `fileSize` in bytes. TGA has no signature and is
/// told last, by the plausibility of its header.
PictureFormat TellPictureFormat(const QByteArray& head, qint64 fileSize);

/// Throw Error(kEndOfFile) when the file ends before its data does. Decoders notice a missing end in their own
/// formats; these are the ones that would return a picture all the same.
void CheckBmpLength(const QByteArray& head, qint64 fileSize);
/// Leaves the device at its begin.
void CheckTiffLength(QIODevice& device);
void CheckPcxLength(const QByteArray& bytes);
void CheckTgaLength(const QByteArray& bytes);
void CheckPsdLength(const QByteArray& bytes);

[[noreturn]] void ThrowCutShort();
[[noreturn]] void ThrowDamaged();

/// Integers at a place of a byte array; 0 beyond its end.
quint32 LittleEndian(const QByteArray& bytes, qint64 at, int count);
quint32 BigEndian(const QByteArray& bytes, qint64 at, int count);

}  // namespace kelu
