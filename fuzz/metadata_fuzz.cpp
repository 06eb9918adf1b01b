// Feeds any bytes to the readers of what photographs carry: EXIF, XMP, image resources, texts, colour profiles. The
// first byte chooses which. What was made anew out of them must come back as it is. Built for libFuzzer.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <cstdlib>

#include "pictures/color_profile.h"
#include "pictures/exif.h"
#include "pictures/photoshop_resources.h"
#include "pictures/png_texts.h"
#include "pictures/xmp.h"

namespace {

using namespace kelu;

constexpr qsizetype kMostInJpeg = 65533 - 6;

QImage Small(QImage::Format format) {
    QImage picture(6, 5, format);
    picture.fill(0xff4080c0);
    return picture;
}

void MakeExif(const QByteArray& bytes) {
    const QImage picture = Small(QImage::Format_RGB32);
    const Exif read = ReadExif(bytes);
    if (read.orientation < 1 || read.orientation > 8) std::abort();
    const QByteArray block = ExifBlockFor(bytes, picture, kMostInJpeg);
    if (block.size() > kMostInJpeg || ReadExif(block).orientation != 1) std::abort();
    const QByteArray tags = WriteTiffTags(ReadTiffTags(bytes));
    if (WriteTiffTags(ReadTiffTags(tags)) != tags) std::abort();
    if (!ReadTiffTags(ExifWithoutPlace(bytes)).gps.empty()) std::abort();
    ExifOfTiff(ReadTiffTags(bytes));
}

void MakeXmp(const QByteArray& bytes) {
    const QByteArray made = XmpFor(bytes, QSize(6, 5));
    if (XmpFor(made, QSize(6, 5)) != made) std::abort();
}

void FindRecords(const QByteArray& bytes) {
    const QByteArray iptc = FindResource(bytes, kIptcResource);
    if (iptc.size() > bytes.size()) std::abort();
    if (!iptc.isEmpty() && FindResource(ResourcesOfIptc(iptc), kIptcResource) != iptc) std::abort();
}

void TakeTexts(const QByteArray& bytes) {
    const qsizetype end = bytes.indexOf('\0');
    Metadata metadata;
    TakePngText({QString::fromLatin1(bytes.left(end)), QString::fromUtf8(bytes.mid(end + 1))}, metadata);
    PutPngChunks(metadata, Small(QImage::Format_RGB32), [](const char*, const QByteArray&) {});
}

void ConvertColors(const QByteArray& profile) {
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        QImage picture = Small(format);
        ConvertToSrgb(picture, profile);
        if (picture.size() != QSize(6, 5) || picture.format() != format) std::abort();
    }
    QImage inks = Small(QImage::Format_ARGB32);
    ConvertCmykToSrgb(inks, profile, /*inverted=*/true);
}

constexpr void (*kReaders[])(const QByteArray& bytes) = {MakeExif, MakeXmp, FindRecords, TakeTexts, ConvertColors};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    kReaders[data[0] % std::size(kReaders)](
        QByteArray(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size) - 1));
    return 0;
}
