// PNG straight into pooled picture memory, by libpng.
// SPDX-License-Identifier: MIT
#include <png.h>

#include <cmath>
#include <csetjmp>
#include <cstdlib>

#include "pictures/color_profile.h"
#include "pictures/exif.h"
#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "pictures/png_texts.h"

namespace kelu {
namespace {

constexpr png_uint_32 kLongestSide = 0x7fffffff;
// Bytes of a text or profile. The library takes and clears what a chunk's length claims, whatever its own limit is.
constexpr png_alloc_size_t kLongestChunk = 64 << 20;
// The gamma of screens; a file that tells about this one and no more is made for a screen like any other.
constexpr double kScreenGamma = 2.2;
constexpr double kGammaTolerance = 0.05;

// The decoder of one file. The library leaves by longjmp, so no function that calls it holds anything with a
// destructor: those are the ones that return bool, false after a failure. It tells nothing on standard error.
class PngDecoder {
 public:
    explicit PngDecoder(QIODevice& device) : device_(device) {
        png_ = png_create_read_struct(
            PNG_LIBPNG_VER_STRING, this, [](png_structp png, png_const_charp) { Self(png)->Leave(); },
            [](png_structp, png_const_charp) {});
        if (png_) info_ = png_create_info_struct(png_);
        if (info_) return;
        png_destroy_read_struct(&png_, nullptr, nullptr);
        ThrowNoMemory();
    }
    ~PngDecoder() { png_destroy_read_struct(&png_, &info_, nullptr); }
    PngDecoder(const PngDecoder&) = delete;
    PngDecoder& operator=(const PngDecoder&) = delete;

    DecodedPicture Read() {
        if (!Start()) Fail();
        const qint64 width = png_get_image_width(png_, info_);
        const qint64 height = png_get_image_height(png_, info_);
        CheckPictureSize(width, height);
        if (!AskForPixels()) Fail();
        DecodedPicture result;
        result.image = MakePicture(static_cast<int>(width), static_cast<int>(height),
                                   transparent_ ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        if (!ReadRows(result.image.bits(), result.image.bytesPerLine(), static_cast<int>(height))) Fail();
        // With all pixels there, a missing end is no loss. A wrong checksum of the last of them is.
        if (!ReadEnd() && !cutShort_) Fail();
        Describe(result);
        return result;
    }

 private:
    static PngDecoder* Self(png_structp png) { return static_cast<PngDecoder*>(png_get_error_ptr(png)); }

    static png_voidp TakeMemory(png_structp png, png_alloc_size_t bytes) {
        auto* self = static_cast<PngDecoder*>(png_get_mem_ptr(png));
        if (bytes <= kLongestChunk || self->takesRows_) return std::malloc(bytes);
        self->cutShort_ = true;  // no file goes on for so long
        return nullptr;
    }
    static void FreeMemory(png_structp, png_voidp memory) { std::free(memory); }

    static void ReadBytes(png_structp png, png_bytep to, png_size_t count) {
        auto* self = static_cast<PngDecoder*>(png_get_io_ptr(png));
        if (self->device_.read(reinterpret_cast<char*>(to), static_cast<qint64>(count)) == static_cast<qint64>(count))
            return;
        self->cutShort_ = true;
        self->Leave();
    }

    [[noreturn]] void Leave() { std::longjmp(leave_, 1); }

    [[noreturn]] void Fail() const {
        if (cutShort_) ThrowCutShort();
        ThrowDamaged();
    }

    bool Start() {
        if (setjmp(leave_)) return false;
        png_set_read_fn(png_, this, &PngDecoder::ReadBytes);
        png_set_user_limits(png_, kLongestSide, kLongestSide);
        png_set_mem_fn(png_, this, &PngDecoder::TakeMemory, &PngDecoder::FreeMemory);
        png_read_info(png_, info_);
        return true;
    }

    // Blue, green, red and alpha of 8 bits each, whatever the file has.
    bool AskForPixels() {
        if (setjmp(leave_)) return false;
        const int type = png_get_color_type(png_, info_);
        transparent_ = (type & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
        png_set_expand(png_);
        png_set_scale_16(png_);
        if ((type & PNG_COLOR_MASK_COLOR) == 0) png_set_gray_to_rgb(png_);
        png_set_bgr(png_);
        if (!transparent_) png_set_filler(png_, 0xff, PNG_FILLER_AFTER);
        passes_ = png_set_interlace_handling(png_);
        takesRows_ = true;
        png_read_update_info(png_, info_);
        takesRows_ = false;
        return true;
    }

    bool ReadRows(png_bytep bits, std::ptrdiff_t stride, int height) {
        if (setjmp(leave_)) return false;
        for (int pass = 0; pass < passes_; ++pass)
            for (int y = 0; y < height; ++y) png_read_row(png_, bits + y * stride, nullptr);
        return true;
    }

    bool ReadEnd() {
        if (setjmp(leave_)) return false;
        png_read_end(png_, info_);
        return true;
    }

    void Describe(DecodedPicture& result) const {
        png_bytep exif = nullptr;
        png_uint_32 length = 0;
        if (png_get_eXIf_1(png_, info_, &length, &exif)) result.metadata.exif = Bytes(exif, length);
        result.metadata.orientation = ReadExif(result.metadata.exif).orientation;
        png_textp texts = nullptr;
        const int count = png_get_text(png_, info_, &texts, nullptr);
        for (int i = 0; i < count; ++i) TakePngText(TextOf(texts[i]), result.metadata);
        SetResolution(result.image, png_get_x_pixels_per_meter(png_, info_), png_get_y_pixels_per_meter(png_, info_));
        result.metadata.profile = FindProfile();
    }

    QByteArray FindProfile() const {
        png_charp name = nullptr;
        int compression = 0;
        png_bytep profile = nullptr;
        png_uint_32 length = 0;
        if (png_get_iCCP(png_, info_, &name, &compression, &profile, &length)) return Bytes(profile, length);
        double gamma = 0;
        if (png_get_valid(png_, info_, PNG_INFO_sRGB) || !png_get_gAMA(png_, info_, &gamma) || gamma <= 0) return {};
        if (std::abs(1 / gamma - kScreenGamma) < kGammaTolerance) return {};
        return GammaProfile(1 / gamma);
    }

    static PictureText TextOf(const png_text& text) {
        const bool isUtf8 =
            text.compression == PNG_ITXT_COMPRESSION_NONE || text.compression == PNG_ITXT_COMPRESSION_zTXt;
        const auto length = static_cast<qsizetype>(isUtf8 ? text.itxt_length : text.text_length);
        return {QString::fromLatin1(text.key),
                isUtf8 ? QString::fromUtf8(text.text, length) : QString::fromLatin1(text.text, length)};
    }

    static QByteArray Bytes(png_bytep data, png_uint_32 length) {
        return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
    }

    QIODevice& device_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    std::jmp_buf leave_{};
    int passes_ = 1;
    bool transparent_ = false;
    bool cutShort_ = false;
    bool takesRows_ = false;  ///< memory for rows, which is as long as they are
};

}  // namespace

DecodedPicture DecodePng(PictureInput& input) { return PngDecoder(input.Device()).Read(); }

}  // namespace kelu
