// The marker segments in which JPEG files carry what they tell beside the picture.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace kelu {

inline constexpr int kJpegExifMarker = 0xe1;  ///< of XMP, too
inline constexpr int kJpegProfileMarker = 0xe2;
inline constexpr int kJpegResourcesMarker = 0xed;
inline constexpr qsizetype kLongestJpegMarker = 0xffff - 2;

// With what they begin.
inline constexpr QByteArrayView kJpegExifName("Exif\0\0", 6);
inline constexpr QByteArrayView kJpegXmpName("http://ns.adobe.com/xap/1.0/\0", 29);
inline constexpr QByteArrayView kJpegMoreXmpName("http://ns.adobe.com/xmp/extension/\0", 35);
inline constexpr QByteArrayView kJpegResourcesName("Photoshop 3.0\0", 14);

}  // namespace kelu
