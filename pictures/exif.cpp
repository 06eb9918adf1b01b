// Orientation and resolution from EXIF data.
// SPDX-License-Identifier: MIT
#include "pictures/exif.h"

#include "pictures/bytes.h"

namespace kelu {
namespace {

constexpr quint32 kOrientationTag = 0x112;
constexpr quint32 kXResolutionTag = 0x11a;
constexpr quint32 kYResolutionTag = 0x11b;
constexpr quint32 kResolutionUnitTag = 0x128;
constexpr quint32 kCentimetre = 3;
constexpr int kEntryBytes = 12;

}  // namespace

Exif ReadExif(const QByteArray& tiff) {
    Exif exif;
    const bool little = tiff.startsWith("II");
    if (!little && !tiff.startsWith("MM")) return exif;
    const auto number = [&](qint64 at, int count) {
        return little ? LittleEndian(tiff, at, count) : BigEndian(tiff, at, count);
    };
    const qint64 directory = number(4, 4);
    const quint32 entries = number(directory, 2);
    double x = 0;
    double y = 0;
    double perMeter = 1 / 0.0254;
    for (quint32 i = 0; i < entries; ++i) {
        const qint64 entry = directory + 2 + qint64{i} * kEntryBytes;
        if (entry + kEntryBytes > tiff.size()) break;
        const quint32 tag = number(entry, 2);
        const quint32 shortValue = number(entry + 8, 2);
        if (tag == kOrientationTag && shortValue >= 1 && shortValue <= 8)
            exif.orientation = static_cast<int>(shortValue);
        if (tag == kResolutionUnitTag && shortValue == kCentimetre) perMeter = 100;
        if (tag == kXResolutionTag || tag == kYResolutionTag) {
            const qint64 at = number(entry + 8, 4);
            const quint32 divisor = number(at + 4, 4);
            if (divisor != 0) (tag == kXResolutionTag ? x : y) = static_cast<double>(number(at, 4)) / divisor;
        }
    }
    exif.dotsPerMeterX = x * perMeter;
    exif.dotsPerMeterY = y * perMeter;
    return exif;
}

}  // namespace kelu
