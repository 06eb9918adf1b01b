// Uncompressed TIFF, by libtiff. The toolkit's writer takes no notice of a full disk.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include "pictures/picture_encoders.h"
#include "pictures/tiff_device.h"
#include "platform/error.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr quint32 kStripBytes = 1 << 16;

void Describe(TIFF* tiff, const QImage& picture, quint32 samples, quint32 stripRows) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<quint32>(picture.width()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<quint32>(picture.height()));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, stripRows);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, picture.dotsPerMeterX() * 0.0254);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, picture.dotsPerMeterY() * 0.0254);
    const quint16 notMultiplied = EXTRASAMPLE_UNASSALPHA;
    if (samples == 4) TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &notMultiplied);
}

// Red, green, blue and, with 4 samples, alpha, of the rows from `top` to before `end`.
void FillStrip(const QImage& picture, int top, int end, quint32 samples, std::vector<quint8>& strip) {
    quint8* out = strip.data();
    for (int y = top; y < end; ++y) {
        const auto* pixel = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x, out += samples) {
            out[0] = static_cast<quint8>(qRed(pixel[x]));
            out[1] = static_cast<quint8>(qGreen(pixel[x]));
            out[2] = static_cast<quint8>(qBlue(pixel[x]));
            if (samples == 4) out[3] = static_cast<quint8>(qAlpha(pixel[x]));
        }
    }
}

}  // namespace

void EncodeTiff(const QImage& picture, const WriteOptions&, QIODevice& device) {
    const auto check = [&](bool well) {
        if (!well) throw Error(kFileError, device.errorString(), QStringLiteral("WritePicture"));
    };
    const quint32 samples = picture.hasAlphaChannel() ? 4 : 3;
    const quint32 rowBytes = static_cast<quint32>(picture.width()) * samples;
    const auto stripRows = static_cast<int>(std::max(kStripBytes / rowBytes, 1u));
    const TiffHandle tiff = OpenTiff(device, "w");
    check(tiff != nullptr);
    Describe(tiff.get(), picture, samples, static_cast<quint32>(stripRows));
    std::vector<quint8> strip(std::size_t{rowBytes} * static_cast<std::size_t>(stripRows));
    quint32 number = 0;
    const WorkReport report;
    for (int top = 0; top < picture.height(); top += stripRows, ++number) {
        const int end = std::min(picture.height(), top + stripRows);
        report(end, picture.height());
        FillStrip(picture, top, end, samples, strip);
        const tmsize_t bytes = static_cast<tmsize_t>(end - top) * rowBytes;
        check(TIFFWriteEncodedStrip(tiff.get(), number, strip.data(), bytes) == bytes);
    }
    check(TIFFFlush(tiff.get()) == 1);
}

}  // namespace kelu
