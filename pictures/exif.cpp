// EXIF 2.32 over directories of TIFF tags.
// SPDX-License-Identifier: MIT
#include "pictures/exif.h"

#include <algorithm>
#include <cmath>

#include "pictures/metadata.h"

namespace kelu {
namespace {

constexpr quint16 kOrientationTag = 0x112;
constexpr quint16 kXResolutionTag = 0x11a;
constexpr quint16 kYResolutionTag = 0x11b;
constexpr quint16 kResolutionUnitTag = 0x128;
constexpr quint16 kChromaPlaceTag = 0x213;
constexpr quint16 kColorSpaceTag = 0xa001;
constexpr quint16 kWidthTag = 0xa002;
constexpr quint16 kHeightTag = 0xa003;
constexpr quint16 kPaddingTag = 0xea1c;
constexpr quint16 kInteropIndexTag = 1;
constexpr quint32 kInch = 2;
constexpr quint32 kCentimetre = 3;
constexpr quint32 kSrgb = 1;

// First and last of the tags of a main directory that tell how pixels lie and what their values mean, or hold what is
// carried in another way (XMP, IPTC, profile) or goes stale (previews, layers, raw data).
constexpr quint16 kOfTheFile[][2] = {{254, 259},     {262, 266},     {273, 274},
                                     {277, 284},     {288, 293},     {296, 296},
                                     {301, 301},     {317, 336},     {338, 347},
                                     {400, 405},     {433, 435},     {512, 532},
                                     {559, 559},     {700, 700},     {33421, 33422},
                                     {33550, 33550}, {33723, 33723}, {33922, 33922},
                                     {34016, 34032}, {34264, 34264}, {34377, 34377},
                                     {34675, 34675}, {34732, 34737}, {37724, 37724},
                                     {50706, 50707}, {50709, 51200}, {kPaddingTag, kPaddingTag}};

bool IsOfTheFile(const TiffTag& tag) {
    return std::ranges::any_of(kOfTheFile,
                               [&](const auto& range) { return tag.tag >= range[0] && tag.tag <= range[1]; });
}

bool IsEmpty(const TiffTags& tags) { return tags.main.empty() && tags.exif.empty() && tags.gps.empty(); }

// Dots per inch as a fraction; whole numbers come back from dots per metre as whole ones.
std::vector<quint32> PerInch(int dotsPerMeter) {
    constexpr double kWholeWithin = 0.02;
    const double perInch = std::max(0.0, dotsPerMeter * 0.0254);
    const double whole = std::round(perInch);
    if (std::abs(perInch - whole) < kWholeWithin) return {static_cast<quint32>(whole), 1};
    return {static_cast<quint32>(std::lround(perInch * 1000)), 1000};
}

// Takes the longest value out, and tells whether there was one.
bool DropLongest(TiffTags& tags) {
    TiffDirectory* from = nullptr;
    TiffDirectory::iterator longest;
    for (TiffDirectory* directory : {&tags.main, &tags.exif, &tags.gps, &tags.interop}) {
        const auto found =
            std::ranges::max_element(*directory, {}, [](const TiffTag& tag) { return tag.value.size(); });
        if (found == directory->end() || (from && found->value.size() <= longest->value.size())) continue;
        from = directory;
        longest = found;
    }
    if (from) from->erase(longest);
    return from != nullptr;
}

}  // namespace

Exif ReadExif(const QByteArray& block) {
    Exif exif;
    const TiffTags tags = ReadTiffTags(block);
    const auto rational = [&](quint16 tag) {
        const TiffTag* found = TiffTags::Find(tags.main, tag);
        const quint32 divisor = found ? tags.Number(*found, 1, 4) : 0;
        return divisor == 0 ? 0.0 : static_cast<double>(tags.Number(*found, 0, 4)) / divisor;
    };
    const auto number = [&](quint16 tag) {
        const TiffTag* found = TiffTags::Find(tags.main, tag);
        return found ? tags.Number(*found, 0, 2) : 0;
    };
    if (const quint32 orientation = number(kOrientationTag); orientation >= 1 && orientation <= 8)
        exif.orientation = static_cast<int>(orientation);
    const double perMeter = number(kResolutionUnitTag) == kCentimetre ? 100 : 1 / 0.0254;
    exif.dotsPerMeterX = rational(kXResolutionTag) * perMeter;
    exif.dotsPerMeterY = rational(kYResolutionTag) * perMeter;
    return exif;
}

TiffTags ExifFor(const QByteArray& block, const QImage& picture) {
    TiffTags tags = ReadTiffTags(block);
    std::erase_if(tags.main, IsOfTheFile);
    tags.Put(tags.main, kOrientationTag, kShort, {1});
    tags.Put(tags.main, kXResolutionTag, kRational, PerInch(picture.dotsPerMeterX()));
    tags.Put(tags.main, kYResolutionTag, kRational, PerInch(picture.dotsPerMeterY()));
    tags.Put(tags.main, kResolutionUnitTag, kShort, {kInch});
    TiffTags::Erase(tags.exif, kPaddingTag);
    if (tags.exif.empty()) return tags;
    tags.Put(tags.exif, kColorSpaceTag, kShort, {kSrgb});
    tags.Put(tags.exif, kWidthTag, kLong, {static_cast<quint32>(picture.width())});
    tags.Put(tags.exif, kHeightTag, kLong, {static_cast<quint32>(picture.height())});
    if (TiffTags::Find(tags.interop, kInteropIndexTag))
        TiffTags::PutBytes(tags.interop, kInteropIndexTag, kText, QByteArray("R98\0", 4));
    return tags;
}

QByteArray ExifBlockFor(const QByteArray& block, const QImage& picture, qsizetype most) {
    if (IsEmpty(ReadTiffTags(block))) return {};
    TiffTags tags = ExifFor(block, picture);
    tags.Put(tags.main, kChromaPlaceTag, kShort, {1});  // in the middle, as colour at full resolution is
    QByteArray made = WriteTiffTags(tags);
    while (made.size() > most && DropLongest(tags)) made = WriteTiffTags(tags);
    return made;
}

QByteArray ExifOfTiff(TiffTags tags) {
    std::erase_if(tags.main, IsOfTheFile);
    // Its inner places count from the begin of a file that is left behind, so none is worth keeping.
    for (TiffTag& tag : tags.exif) tag.at = 0;
    TiffTags::Erase(tags.main, kXResolutionTag);
    TiffTags::Erase(tags.main, kYResolutionTag);
    return WriteTiffTags(tags);
}

QByteArray ExifWithoutPlace(const QByteArray& block) {
    TiffTags tags = ReadTiffTags(block);
    tags.gps.clear();
    TiffTags::Erase(tags.exif, TiffTags::kNoteTag);
    return WriteTiffTags(tags);
}

Metadata WithoutPlace(const Metadata& metadata) {
    Metadata kept;
    kept.exif = ExifWithoutPlace(metadata.exif);
    return kept;
}

}  // namespace kelu
