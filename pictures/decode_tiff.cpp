// TIFF by libtiff, after a check that all strips or tiles are there. What its own conversion to RGB can't do, or does
// without the profile (CMYK), is left to the second reader.
// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <vector>

#include "pictures/bytes.h"
#include "pictures/exif.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/tiff_device.h"

namespace kelu {
namespace {

constexpr quint16 kXmpTag = 700;
constexpr quint16 kIptcTag = 33723;

template <typename Value>
Value Field(TIFF* tiff, quint32 tag, Value otherwise) {
    Value value = otherwise;
    return TIFFGetFieldDefaulted(tiff, tag, &value) == 1 ? value : otherwise;
}

bool CanConvert(TIFF* tiff) {
    char reason[1024];
    const auto photometric = Field<quint16>(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    const auto kind = Field<quint16>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    // Of grey with alpha the library reads 8 bits, and of 16 the grey alone.
    const bool losesAlpha = photometric <= PHOTOMETRIC_MINISBLACK &&
                            Field<quint16>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1) > 1 &&
                            Field<quint16>(tiff, TIFFTAG_BITSPERSAMPLE, 1) != 8;
    return photometric != PHOTOMETRIC_SEPARATED && !losesAlpha && OneOf(kind, {SAMPLEFORMAT_UINT, SAMPLEFORMAT_VOID}) &&
           TIFFRGBAImageOK(tiff, reason) == 1;
}

// What an extra sample means: one of EXTRASAMPLE_..., of which only the two of alpha make a picture transparent.
quint16 AlphaKind(TIFF* tiff) {
    quint16 count = 0;
    quint16* kinds = nullptr;
    if (TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) != 1 || count == 0) return EXTRASAMPLE_UNSPECIFIED;
    return kinds[0];
}

// Fills the picture, whose pixels the library gives as red, green, blue, alpha from the lowest byte up.
void ReadPixels(TIFF* tiff, QImage& picture) {
    char reason[1024];
    TIFFRGBAImage reader;
    if (TIFFRGBAImageBegin(&reader, tiff, 1, reason) != 1) ThrowDamaged();
    reader.orientation = reader.req_orientation = ORIENTATION_TOPLEFT;  // turned later, by us
    const bool well =
        TIFFRGBAImageGet(&reader, reinterpret_cast<quint32*>(picture.bits()), static_cast<quint32>(picture.width()),
                         static_cast<quint32>(picture.height())) == 1;
    TIFFRGBAImageEnd(&reader);
    if (!well) ThrowDamaged();
    const quint32 opaque = picture.hasAlphaChannel() ? 0 : 0xff000000u;
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<quint32*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = (row[x] & 0xff00ff00u) | (row[x] & 0xffu) << 16 | (row[x] >> 16 & 0xffu) | opaque;
    }
}

void Describe(TIFF* tiff, DecodedPicture& result) {
    result.metadata.orientation = Field<quint16>(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    quint32 length = 0;
    void* profile = nullptr;
    if (TIFFGetField(tiff, TIFFTAG_ICCPROFILE, &length, &profile) == 1)
        result.metadata.profile = QByteArray(static_cast<const char*>(profile), static_cast<qsizetype>(length));
    const auto unit = Field<quint16>(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    const double perMeter = unit == RESUNIT_INCH ? 1 / 0.0254 : unit == RESUNIT_CENTIMETER ? 100 : 0;
    SetResolution(result.image, Field<float>(tiff, TIFFTAG_XRESOLUTION, 0) * perMeter,
                  Field<float>(tiff, TIFFTAG_YRESOLUTION, 0) * perMeter);
}

}  // namespace

bool IsTiff(const QByteArray& head, qint64) {
    for (const char* signature : {"II*\0", "MM\0*", "II+\0", "MM\0+"})
        if (head.startsWith(QByteArray(signature, 4))) return true;
    return false;
}

void CheckTiff(PictureInput& input) {
    QIODevice& device = input.Device();
    constexpr qint64 kMostValues = 1 << 20;
    constexpr std::array<int, 13> kTypeBytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    const auto read = [&](qint64 at, qint64 count) {
        if (at + count > device.size() || !device.seek(at)) ThrowCutShort();
        return device.read(count);
    };
    const bool little = device.peek(2) == "II";
    const auto number = [&](const QByteArray& bytes, qint64 at, int count) {
        return little ? LittleEndian(bytes, at, count) : BigEndian(bytes, at, count);
    };
    const QByteArray head = read(0, 8);
    if (number(head, 2, 2) != 42) return;  // files of more than 4 GB are laid out differently
    const qint64 directory = number(head, 4, 4);
    const qint64 entries = number(read(directory, 2), 0, 2);
    const QByteArray fields = read(directory + 2, entries * 12);
    std::vector<qint64> offsets, sizes;
    for (qint64 entry = 0; entry < fields.size(); entry += 12) {
        const quint32 tag = number(fields, entry, 2);
        const quint32 type = number(fields, entry + 2, 2);
        const qint64 count = number(fields, entry + 4, 4);
        const int bytes = type < kTypeBytes.size() ? kTypeBytes[type] : 0;
        const qint64 at = count * bytes <= 4 ? directory + 2 + entry + 8 : qint64{number(fields, entry + 8, 4)};
        if (at + count * bytes > device.size()) ThrowCutShort();
        const bool places = OneOf(tag, {273, 324});  // of strips, of tiles
        if (!places && !OneOf(tag, {279, 325})) continue;
        if (bytes == 0 || offsets.size() + sizes.size() > kMostValues) ThrowDamaged();
        const QByteArray values = read(at, std::min(count, kMostValues) * bytes);
        for (qint64 i = 0; i < count && (i + 1) * bytes <= values.size(); ++i)
            (places ? offsets : sizes).push_back(number(values, i * bytes, bytes));
    }
    for (std::size_t i = 0; i < std::min(offsets.size(), sizes.size()); ++i)
        if (offsets[i] + sizes[i] > device.size()) ThrowCutShort();
}

DecodedPicture DecodeTiff(PictureInput& input) {
    const TiffHandle tiff = OpenTiff(input.Device(), "r");
    if (!tiff) ThrowDamaged();
    const auto width = Field<quint32>(tiff.get(), TIFFTAG_IMAGEWIDTH, 0);
    const auto height = Field<quint32>(tiff.get(), TIFFTAG_IMAGELENGTH, 0);
    CheckPictureSize(width, height);
    if (!CanConvert(tiff.get())) return {};
    const quint16 alpha = AlphaKind(tiff.get());
    // Told that colours are multiplied by alpha, the library leaves them as they are; nothing is lost by rounding.
    const quint16 multiplied = EXTRASAMPLE_ASSOCALPHA;
    if (alpha == EXTRASAMPLE_UNASSALPHA) TIFFSetField(tiff.get(), TIFFTAG_EXTRASAMPLES, 1, &multiplied);
    DecodedPicture result;
    result.image = MakePicture(static_cast<int>(width), static_cast<int>(height),
                               alpha == EXTRASAMPLE_ASSOCALPHA   ? QImage::Format_ARGB32_Premultiplied
                               : alpha == EXTRASAMPLE_UNASSALPHA ? QImage::Format_ARGB32
                                                                 : QImage::Format_RGB32);
    ReadPixels(tiff.get(), result.image);
    if (alpha == EXTRASAMPLE_ASSOCALPHA) result.image.convertTo(QImage::Format_ARGB32);
    Describe(tiff.get(), result);
    return result;
}

void DescribeTiff(PictureInput& input, Metadata& metadata) {
    TiffTags tags = ReadTiffTags(input.Device());
    if (const TiffTag* xmp = TiffTags::Find(tags.main, kXmpTag)) metadata.xmp = xmp->value;
    if (const TiffTag* iptc = TiffTags::Find(tags.main, kIptcTag)) metadata.iptc = iptc->value;
    metadata.exif = ExifOfTiff(std::move(tags));
}

}  // namespace kelu
