// JPEG with colour at full resolution, by libjpeg-turbo.
// SPDX-License-Identifier: MIT
#include <cstdio>
// jpeglib.h needs FILE
#include <jpeglib.h>

#include <array>
#include <csetjmp>
#include <vector>

#include "pictures/color_profile.h"
#include "pictures/exif.h"
#include "pictures/jpeg_markers.h"
#include "pictures/photoshop_resources.h"
#include "pictures/picture_encoders.h"
#include "pictures/picture_texts.h"
#include "pictures/xmp.h"
#include "platform/error.h"
#include "platform/run_beside.h"
#include "platform/units.h"

namespace kelu {
namespace {

struct Marker {
    int number;
    QByteArray data;
};

// What goes along with the picture, each part in as many markers as it needs, or in none where one must hold it.
std::vector<Marker> MarkersOf(const Metadata& metadata, const QImage& picture) {
    std::vector<Marker> markers;
    const auto add = [&](int number, QByteArrayView name, const QByteArray& data) {
        if (!data.isEmpty() && name.size() + data.size() <= kLongestJpegMarker)
            markers.push_back({number, name.toByteArray() + data});
    };
    add(kJpegExifMarker, kJpegExifName,
        ExifBlockFor(metadata.exif, picture, kLongestJpegMarker - kJpegExifName.size()));
    const XmpParts xmp = SplitXmp(XmpFor(metadata.xmp, picture.size()), kLongestJpegMarker - kJpegMoreXmpName.size());
    add(kJpegExifMarker, kJpegXmpName, xmp.standard);
    for (const QByteArray& piece : xmp.pieces) add(kJpegExifMarker, kJpegMoreXmpName, piece);
    const QByteArray resources = metadata.iptc.isEmpty() ? QByteArray() : ResourcesOfIptc(metadata.iptc);
    const qsizetype most = kLongestJpegMarker - kJpegResourcesName.size();
    for (qsizetype at = 0; at < resources.size(); at += most)
        add(kJpegResourcesMarker, kJpegResourcesName, resources.mid(at, most));
    for (const PictureText& text : metadata.texts) {
        const bool isComment = text.name == QLatin1String(kCommentName);
        add(JPEG_COM, {}, (isComment ? text.text : text.name + QStringLiteral(": ") + text.text).toUtf8());
    }
    return markers;
}

// The library leaves by longjmp on errors; nothing between the setjmp and the calls has a destructor.
class JpegEncoder {
 public:
    JpegEncoder(QIODevice& device, int quality, const Metadata& metadata)
        : device_(device), quality_(quality), metadata_(metadata) {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = [](j_common_ptr info) { std::longjmp(Self(info)->leave_, 1); };
        errors_.output_message = [](j_common_ptr) {};
        info_.client_data = this;
        target_.init_destination = [](j_compress_ptr info) { Self(info)->StartBuffer(); };
        target_.empty_output_buffer = [](j_compress_ptr info) -> boolean {
            Self(info)->Flush(Self(info)->buffer_.size());
            return TRUE;
        };
        target_.term_destination = [](j_compress_ptr info) {
            Self(info)->Flush(Self(info)->buffer_.size() - Self(info)->target_.free_in_buffer);
        };
    }
    ~JpegEncoder() { jpeg_destroy_compress(&info_); }
    JpegEncoder(const JpegEncoder&) = delete;
    JpegEncoder& operator=(const JpegEncoder&) = delete;

    void Write(const QImage& picture) {
        markers_ = MarkersOf(metadata_, picture);
        const auto perInch = [](int perMeter) {
            return static_cast<UINT16>(qBound(1, RoundToEven(perMeter * 0.0254), 65535));
        };
        if (!Encode(picture.constBits(), picture.bytesPerLine(), static_cast<JDIMENSION>(picture.width()),
                    static_cast<JDIMENSION>(picture.height()), perInch(picture.dotsPerMeterX()),
                    perInch(picture.dotsPerMeterY())))
            throw Error(kFileError,
                        failed_ ? device_.errorString() : PictureTexts::tr("The picture is too large for a JPEG file"),
                        QStringLiteral("WritePicture"));
    }

 private:
    template <typename Info>
    static JpegEncoder* Self(Info info) {
        return static_cast<JpegEncoder*>(info->client_data);
    }

    bool Encode(const unsigned char* bits, std::ptrdiff_t stride, JDIMENSION width, JDIMENSION height, UINT16 xDensity,
                UINT16 yDensity) {
        const WorkReport report;
        if (setjmp(leave_)) return false;
        jpeg_create_compress(&info_);
        info_.dest = &target_;
        info_.image_width = width;
        info_.image_height = height;
        info_.input_components = 4;
        info_.in_color_space = JCS_EXT_BGRX;
        jpeg_set_defaults(&info_);
        jpeg_set_quality(&info_, quality_, TRUE);
        info_.comp_info[0].h_samp_factor = 1;
        info_.comp_info[0].v_samp_factor = 1;
        info_.density_unit = 1;  // dots per inch
        info_.X_density = xDensity;
        info_.Y_density = yDensity;
        jpeg_start_compress(&info_, TRUE);
        for (const Marker& marker : markers_)
            jpeg_write_marker(&info_, marker.number, reinterpret_cast<const JOCTET*>(marker.data.constData()),
                              static_cast<unsigned>(marker.data.size()));
        jpeg_write_icc_profile(&info_, reinterpret_cast<const JOCTET*>(profile_.constData()),
                               static_cast<unsigned>(profile_.size()));
        while (info_.next_scanline < height) {
            report(info_.next_scanline, height);
            auto* row = const_cast<JSAMPLE*>(bits + std::ptrdiff_t{info_.next_scanline} * stride);
            jpeg_write_scanlines(&info_, &row, 1);
        }
        jpeg_finish_compress(&info_);
        return true;
    }

    void StartBuffer() {
        target_.next_output_byte = buffer_.data();
        target_.free_in_buffer = buffer_.size();
    }

    void Flush(std::size_t count) {
        const auto bytes = static_cast<qint64>(count);
        if (device_.write(reinterpret_cast<const char*>(buffer_.data()), bytes) != bytes) {
            failed_ = true;
            std::longjmp(leave_, 1);
        }
        StartBuffer();
    }

    QIODevice& device_;
    int quality_;
    const Metadata& metadata_;
    std::vector<Marker> markers_;
    const QByteArray& profile_ = SrgbProfile();
    jpeg_compress_struct info_{};
    jpeg_error_mgr errors_{};
    jpeg_destination_mgr target_{};
    std::jmp_buf leave_{};
    bool failed_ = false;
    std::array<JOCTET, 1 << 16> buffer_;
};

}  // namespace

void EncodeJpeg(const QImage& picture, const WriteOptions& options, QIODevice& device) {
    JpegEncoder(device, options.quality, options.metadata).Write(OverWhite(picture));
}

}  // namespace kelu
