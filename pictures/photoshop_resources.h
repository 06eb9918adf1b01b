// Image resources: the wrapping in which JPEG and PNG files carry IPTC records, and PSD files EXIF and XMP, too.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace kelu {

inline constexpr quint32 kIptcResource = 0x404;
inline constexpr quint32 kExifResource = 0x422;
inline constexpr quint32 kXmpResource = 0x424;

/// The data of the first of these image resources ("8BIM" blocks) that has this number; empty where there is none.
QByteArray FindResource(const QByteArray& resources, quint32 number);
/// Image resources that hold the records alone.
QByteArray ResourcesOfIptc(const QByteArray& iptc);

}  // namespace kelu
