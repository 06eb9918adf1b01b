// The file that a picture is read from, as every decoder gets it.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>

namespace kelu {

struct PictureFormat;

class PictureInput {
 public:
    /// `device` is open and can seek. With a non-empty `box` (pixels) the picture may be decoded smaller, but not below
    /// that size.
    PictureInput(QIODevice& device, const PictureFormat& format, const QSize& box)
        : device_(device), format_(format), box_(box) {}

    const PictureFormat& Format() const { return format_; }
    const QSize& Box() const { return box_; }
    qint64 Size() const { return device_.size(); }
    /// The file from its begin, for readers that take what they need.
    QIODevice& Device();
    /// The first bytes of the file, enough for the fixed header of any format; all of a shorter file.
    QByteArray Head();
    /// The whole file, read at the first call. Throws Error(kFileError).
    const QByteArray& Bytes();

 private:
    QIODevice& device_;
    const PictureFormat& format_;
    QSize box_;
    QByteArray bytes_;
};

/// Dots per metre; what no picture can have is not taken.
void SetResolution(QImage& image, double x, double y);

/// Error(kEndOfFile).
[[noreturn]] void ThrowCutShort();
/// Error(kInvalidPicture).
[[noreturn]] void ThrowDamaged();
/// Error(kOutOfMemory).
[[noreturn]] void ThrowNoMemory();

}  // namespace kelu
