// The rows of the picture formats.
// SPDX-License-Identifier: MIT
#include "pictures/picture_format.h"

#include <QFileInfo>
#include <algorithm>
#include <vector>

#include "pictures/picture_decoders.h"
#include "pictures/picture_encoders.h"
#include "pictures/picture_texts.h"

namespace kelu {
namespace {

bool IsGif(const QByteArray& head, qint64) { return head.startsWith("GIF87a") || head.startsWith("GIF89a"); }
bool IsJpeg(const QByteArray& head, qint64) { return head.startsWith("\xff\xd8\xff"); }
bool IsJpegXl(const QByteArray& head, qint64) {
    return head.startsWith("\xff\x0a") || head.startsWith(QByteArray("\0\0\0\x0cJXL \r\n\x87\n", 12));
}
bool IsPng(const QByteArray& head, qint64) { return head.startsWith("\x89PNG\r\n\x1a\n"); }
bool IsPsd(const QByteArray& head, qint64) { return head.startsWith(QByteArray("8BPS\0\1", 6)); }

constexpr PictureFormat kFormats[] = {
    {.name = "BMP",
     .extensions = "bmp",
     .mimeTypes = "image/bmp",
     .recognise = IsBmp,
     .check = CheckBmp,
     .decoders = {DecodeBmp},
     .toolkitName = "bmp",
     .encode = EncodeBmp,
     .saveFilter = 1},
    {.name = "GIF",
     .extensions = "gif",
     .mimeTypes = "image/gif",
     .recognise = IsGif,
     .decoders = {DecodeGif},
     .encode = EncodeGif,
     .saveFilter = 3},
    {.name = "JPEG",
     .extensions = "jpg jpeg",
     .mimeTypes = "image/jpeg",
     .recognise = IsJpeg,
     .decoders = {DecodeJpeg},
     .encode = EncodeJpeg,
     .saveFilter = 4},
    {.name = "PNG",
     .extensions = "png",
     .mimeTypes = "image/png",
     .recognise = IsPng,
     .decoders = {DecodePng},
     .encode = EncodePng,
     .saveFilter = 2},
    {.name = "TIFF",
     .extensions = "tif",
     .alsoWrittenAs = "tiff",
     .mimeTypes = "image/tiff",
     .recognise = IsTiff,
     .check = CheckTiff,
     .decoders = {DecodeRawTiff, DecodeTiff, DecodeWithMagick},
     .describe = DescribeTiff,
     .magickName = "TIFF",
     .encode = EncodeTiff},
    {.name = "PCX",
     .extensions = "pcx",
     .mimeTypes = "image/x-pcx",
     .recognise = IsPcx,
     .check = CheckPcx,
     .decoders = {DecodeBlackAndWhitePcx, DecodeWithMagick},
     .magickName = "PCX"},
    {.name = "PSD",
     .extensions = "psd",
     .mimeTypes = "image/vnd.adobe.photoshop",
     .recognise = IsPsd,
     .check = CheckPsd,
     .decoders = {DecodeIndexedPsd, DecodeMergedPsd},
     .describe = DescribePsd},
    {.name = "WebP",
     .extensions = "webp",
     .mimeTypes = "image/webp",
     .recognise = IsWebp,
     .check = CheckWebp,
     .decoders = {DecodeWebp},
     .toolkitName = "webp",
     .encode = EncodeWebp},
    {.name = "AVIF",
     .extensions = "avif",
     .mimeTypes = "image/avif",
     .recognise = IsAvif,
     .decoders = {DecodeWithModule},
     .moduleName = "heif"},
    {.name = "HEIC",
     .extensions = "heic heif",
     .mimeTypes = "image/heic image/heif",
     .recognise = IsHeic,
     .decoders = {DecodeWithModule},
     .moduleName = "heif"},
    {.name = "JPEG XL",
     .extensions = "jxl",
     .mimeTypes = "image/jxl",
     .recognise = IsJpegXl,
     .decoders = {DecodeWithModule},
     .moduleName = "jxl"},
    {.name = "camera RAW",
     .extensions = "dng cr2 cr3 nef arw orf raf rw2 pef srw",
     .mimeTypes = "image/x-adobe-dng image/x-canon-cr2 image/x-canon-cr3 image/x-nikon-nef image/x-sony-arw "
                  "image/x-olympus-orf image/x-fuji-raf image/x-panasonic-rw2 image/x-pentax-pef image/x-samsung-srw",
     .recognise = IsCameraRaw,
     .decoders = {DecodeWithModule},
     .moduleName = kRawModule},
    {.name = "TGA", .extensions = "tga", .mimeTypes = "image/x-tga", .recognise = IsTga, .decoders = {DecodeTga}},
};

QStringList Words(const char* text) { return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts); }

}  // namespace

std::span<const PictureFormat> PictureFormats() { return kFormats; }

const PictureFormat* TellPictureFormat(const QByteArray& head, qint64 fileSize) {
    const auto found = std::ranges::find_if(kFormats, [&](const auto& row) { return row.recognise(head, fileSize); });
    return found == std::end(kFormats) ? nullptr : found;
}

const PictureFormat* FormatToWrite(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    const auto found = std::ranges::find_if(kFormats, [&](const PictureFormat& row) {
        return row.encode && (Words(row.extensions) + Words(row.alsoWrittenAs)).contains(extension);
    });
    return found == std::end(kFormats) ? nullptr : found;
}

QStringList PictureExtensions() {
    QStringList all;
    for (const PictureFormat& row : kFormats) all += Words(row.extensions);
    return all;
}

QString SaveFilter(const QString& name, const QString& extension) {
    return PictureTexts::tr("%1 Files (*.%2)").arg(name, extension) + QStringLiteral("|*.") + extension;
}

QString SaveFilters() {
    std::vector<const PictureFormat*> offered;
    for (const PictureFormat& row : kFormats)
        if (row.saveFilter > 0) offered.push_back(&row);
    std::ranges::sort(offered, {}, &PictureFormat::saveFilter);
    QStringList filters;
    for (const PictureFormat* row : offered)
        filters += SaveFilter(QLatin1String(row->name), Words(row->extensions).first());
    return filters.join(u'|');
}

}  // namespace kelu
