// JPEG straight into pooled picture memory, by libjpeg-turbo.
// SPDX-License-Identifier: MIT
#include <cstdio>
// jpeglib.h needs FILE
#include <jerror.h>
#include <jpeglib.h>

#include <QStringDecoder>
#include <csetjmp>

#include "pictures/color_profile.h"
#include "pictures/exif.h"
#include "pictures/jpeg_markers.h"
#include "pictures/photoshop_resources.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/xmp.h"
#include "platform/error.h"
#include "platform/run_beside.h"

namespace kelu {
namespace {

constexpr int kMarkersKept[] = {kJpegExifMarker, kJpegProfileMarker, kJpegResourcesMarker, JPEG_COM};
constexpr int kMostTexts = 100;
constexpr unsigned kLongestMarker = 0xffff;
// More scans than any encoder writes; a file of thousands is made to burn time.
constexpr int kMostScans = 200;
constexpr JDIMENSION kRowsAtOnce = 8;

// The decoder of one file. The library leaves by longjmp, so no function that calls it holds anything with a
// destructor: those are the ones that return bool, false after a failure.
class JpegDecoder {
 public:
    explicit JpegDecoder(const QByteArray& bytes) {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = [](j_common_ptr info) { Self(info)->Leave(); };
        errors_.emit_message = &JpegDecoder::OnMessage;
        errors_.output_message = [](j_common_ptr) {};
        info_.client_data = this;
        if (!Start(reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<unsigned long>(bytes.size())))
            Fail();
    }
    ~JpegDecoder() { jpeg_destroy_decompress(&info_); }
    JpegDecoder(const JpegDecoder&) = delete;
    JpegDecoder& operator=(const JpegDecoder&) = delete;

    DecodedPicture Read(const QSize& box) {
        CheckPictureSize(info_.image_width, info_.image_height);
        DecodedPicture result;
        result.fileSize = QSize(static_cast<int>(info_.image_width), static_cast<int>(info_.image_height));
        result.metadata = FindMetadata();
        const Exif exif = ReadExif(result.metadata.exif);
        result.metadata.orientation = exif.orientation;
        ChooseScale(exif.orientation >= 5 ? box.transposed() : box);
        const bool cmyk = info_.jpeg_color_space == JCS_CMYK || info_.jpeg_color_space == JCS_YCCK;
        info_.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRA;
        if (!Begin()) Fail();
        result.metadata.profile = FindProfile();
        result.image = MakePicture(static_cast<int>(info_.output_width), static_cast<int>(info_.output_height),
                                   QImage::Format_RGB32);
        if (!ReadRows(result.image.bits(), result.image.bytesPerLine())) Fail();
        if (cmyk) {
            ConvertCmykToSrgb(result.image, result.metadata.profile, info_.saw_Adobe_marker);
            result.metadata.profile.clear();
        }
        TakeResolution(result.image, exif);
        return result;
    }

 private:
    static JpegDecoder* Self(j_common_ptr info) { return static_cast<JpegDecoder*>(info->client_data); }

    // The library goes on after damage, with grey or garbage for what is lost. Here such a file is an error.
    static void OnMessage(j_common_ptr info, int level) {
        if (level >= 0) return;
        const int code = info->err->msg_code;
        // The end mark alone may be missing, but no pixel.
        if (code == JWRN_JPEG_EOF) Self(info)->endMissing_ = true;
        if (code == JWRN_HIT_MARKER) Self(info)->cutShort_ = true;
        if (Self(info)->cutShort_ || code == JWRN_HUFF_BAD_CODE || code == JWRN_MUST_RESYNC) Self(info)->Leave();
    }

    [[noreturn]] void Leave() { std::longjmp(leave_, 1); }

    [[noreturn]] void Fail() {
        const bool eof = cutShort_ || errors_.msg_code == JERR_INPUT_EOF || errors_.msg_code == JERR_INPUT_EMPTY;
        const bool memory = errors_.msg_code == JERR_OUT_OF_MEMORY;
        // Thrown from the constructor the destructor does not run; destroying twice is allowed.
        jpeg_destroy_decompress(&info_);
        if (memory) ThrowNoMemory();
        if (eof) ThrowCutShort();
        ThrowDamaged();
    }

    bool Start(const unsigned char* bytes, unsigned long size) {
        if (setjmp(leave_)) return false;
        jpeg_create_decompress(&info_);
        jpeg_mem_src(&info_, bytes, size);
        for (const int marker : kMarkersKept) jpeg_save_markers(&info_, marker, kLongestMarker);
        jpeg_read_header(&info_, TRUE);
        monitor_.progress_monitor = [](j_common_ptr info) {
            if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans) Self(info)->Leave();
        };
        info_.progress = &monitor_;
        return true;
    }

    bool Begin() {
        if (setjmp(leave_)) return false;
        jpeg_start_decompress(&info_);
        return true;
    }

    bool ReadRows(unsigned char* bits, std::ptrdiff_t stride) {
        const WorkReport report;
        if (setjmp(leave_)) return false;
        while (info_.output_scanline < info_.output_height) {
            const JDIMENSION left = info_.output_height - info_.output_scanline;
            const JDIMENSION count = left < kRowsAtOnce ? left : kRowsAtOnce;
            JSAMPROW rows[kRowsAtOnce];
            for (JDIMENSION i = 0; i < count; ++i) rows[i] = bits + std::ptrdiff_t{info_.output_scanline + i} * stride;
            jpeg_read_scanlines(&info_, rows, count);
            report(info_.output_scanline, info_.output_height);
        }
        cutShort_ = endMissing_ && !AllScansSeen();
        if (cutShort_) return false;
        jpeg_finish_decompress(&info_);
        return true;
    }

    // Whether the file went on to the last bit of every coefficient. A cut between two scans looks like a whole file.
    bool AllScansSeen() const {
        if (info_.arith_code) return false;  // this decoder makes up what is missing, and says nothing
        if (!info_.progressive_mode) return info_.input_scan_number * info_.comps_in_scan >= info_.num_components;
        for (int component = 0; component < info_.num_components; ++component)
            for (const int missing : info_.coef_bits[component])
                if (missing != 0) return false;
        return true;
    }

    // Decoding at a half, a quarter or an eighth is much faster than scaling afterwards.
    void ChooseScale(const QSize& box) {
        if (box.isEmpty()) return;
        const QSize size(static_cast<int>(info_.image_width), static_cast<int>(info_.image_height));
        const QSize wanted = size.scaled(box, Qt::KeepAspectRatio);
        for (const int divisor : {8, 4, 2}) {
            if (size.width() / divisor < wanted.width() || size.height() / divisor < wanted.height()) continue;
            info_.scale_num = 1;
            info_.scale_denom = static_cast<unsigned>(divisor);
            return;
        }
    }

    Metadata FindMetadata() const {
        Metadata metadata;
        QByteArray resources;
        XmpParts xmp;
        for (jpeg_saved_marker_ptr marker = info_.marker_list; marker; marker = marker->next) {
            const QByteArray data(reinterpret_cast<const char*>(marker->data),
                                  static_cast<qsizetype>(marker->data_length));
            const auto take = [&](int number, QByteArrayView name, QByteArray& to) {
                if (marker->marker == number && data.startsWith(name)) to += data.mid(name.size());
            };
            if (metadata.exif.isEmpty()) take(kJpegExifMarker, kJpegExifName, metadata.exif);
            if (xmp.standard.isEmpty()) take(kJpegExifMarker, kJpegXmpName, xmp.standard);
            QByteArray piece;
            take(kJpegExifMarker, kJpegMoreXmpName, piece);
            if (!piece.isEmpty()) xmp.pieces += piece;
            take(kJpegResourcesMarker, kJpegResourcesName, resources);
            if (marker->marker == JPEG_COM && metadata.texts.size() < kMostTexts)
                metadata.texts.append({QLatin1String(kCommentName), TextOf(data)});
        }
        metadata.xmp = JoinXmp(xmp);
        metadata.iptc = FindResource(resources, kIptcResource);
        return metadata;
    }

    // Comments have no encoding of their own.
    static QString TextOf(const QByteArray& bytes) {
        const QByteArray text = bytes.split('\0').first();
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString decoded = decoder(text);
        return decoder.hasError() ? QString::fromLatin1(text) : decoded;
    }

    QByteArray FindProfile() {
        JOCTET* data = nullptr;
        unsigned length = 0;
        if (!jpeg_read_icc_profile(&info_, &data, &length)) return {};
        const QByteArray profile(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
        std::free(data);
        return profile;
    }

    void TakeResolution(QImage& image, const Exif& exif) const {
        double perMeter = 0;
        if (info_.saw_JFIF_marker && info_.density_unit == 1) perMeter = 1 / 0.0254;
        if (info_.saw_JFIF_marker && info_.density_unit == 2) perMeter = 100;
        const double x = perMeter > 0 ? info_.X_density * perMeter : exif.dotsPerMeterX;
        const double y = perMeter > 0 ? info_.Y_density * perMeter : exif.dotsPerMeterY;
        SetResolution(image, x, y);
    }

    jpeg_decompress_struct info_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr monitor_{};
    std::jmp_buf leave_{};
    bool endMissing_ = false;
    bool cutShort_ = false;
};

}  // namespace

DecodedPicture DecodeJpeg(PictureInput& input) { return JpegDecoder(input.Bytes()).Read(input.Box()); }

}  // namespace kelu
