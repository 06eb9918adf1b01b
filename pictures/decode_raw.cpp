// Camera RAW: which files are some. Their pictures are the previews inside, found by the module.
// SPDX-License-Identifier: MIT
#include "pictures/bytes.h"
#include "pictures/picture_decoders.h"
#include "pictures/tiff_tags.h"

namespace kelu {
namespace {

constexpr quint16 kSubfileTag = 254;  // what the main directory is: 1 for a smaller picture of another one
constexpr quint16 kPhotometricTag = 262;
constexpr quint16 kBelowTag = 330;  // further directories
constexpr quint16 kDngTag = 50706;
constexpr quint32 kColorFilters = 32803;
constexpr quint32 kLinearRaw = 34892;

}  // namespace

bool IsCameraRaw(const QByteArray& head, qint64) {
    const QByteArray four = head.left(4);
    return head.startsWith("FUJIFILMCCD-RAW ") || head.mid(4, 8) == "ftypcrx " || four == "IIRO" || four == "IIRS" ||
           four == "MMOR" || four == QByteArray("IIU\0", 4);
}

DecodedPicture DecodeRawTiff(PictureInput& input) {
    const TiffTags tags = ReadTiffTags(input.Device());
    const auto number = [&](quint16 tag, int bytes) {
        const TiffTag* found = TiffTags::Find(tags.main, tag);
        return found ? tags.Number(*found, 0, bytes) : 0;
    };
    const bool isPreview = number(kSubfileTag, 4) == 1 && TiffTags::Find(tags.main, kBelowTag);
    const bool isRaw =
        TiffTags::Find(tags.main, kDngTag) || OneOf(number(kPhotometricTag, 2), {kColorFilters, kLinearRaw});
    const bool isCr2 = input.Head().mid(8, 2) == "CR";
    if (!isPreview && !isRaw && !isCr2) return {};
    return DecodeWithModule(input, kRawModule, QLatin1String("camera RAW"));
}

}  // namespace kelu
