// JPEG XL by libjxl. The library turns the pixels as the file says.
// SPDX-License-Identifier: MIT
#include <jxl/decode.h>
#include <jxl/decode_cxx.h>
#include <jxl/thread_parallel_runner.h>
#include <jxl/thread_parallel_runner_cxx.h>
#include <jxl/version.h>

#include <cstdlib>
#include <new>

#include "pictures/codec_module.h"
#include "pictures/codecs/quiet_standard_error.h"

namespace {

constexpr JxlPixelFormat kPixels{4, JXL_TYPE_UINT8, JXL_NATIVE_ENDIAN, 0};  // red, green, blue, alpha

// Of the pixels that come out, which for many files can be sRGB at once.
QByteArray Profile(JxlDecoder* decoder) {
    JxlColorEncoding srgb{};
    srgb.color_space = JXL_COLOR_SPACE_RGB;
    srgb.white_point = JXL_WHITE_POINT_D65;
    srgb.primaries = JXL_PRIMARIES_SRGB;
    srgb.transfer_function = JXL_TRANSFER_FUNCTION_SRGB;
    srgb.rendering_intent = JXL_RENDERING_INTENT_PERCEPTUAL;
    JxlDecoderSetPreferredColorProfile(decoder, &srgb);
    std::size_t size = 0;
#if defined(JPEGXL_NUMERIC_VERSION) && JPEGXL_NUMERIC_VERSION >= JPEGXL_COMPUTE_NUMERIC_VERSION(0, 9, 0)
    const auto sizeOf = [&] { return JxlDecoderGetICCProfileSize(decoder, JXL_COLOR_PROFILE_TARGET_DATA, &size); };
    const auto get = [&](QByteArray& to) {
        return JxlDecoderGetColorAsICCProfile(decoder, JXL_COLOR_PROFILE_TARGET_DATA,
                                              reinterpret_cast<std::uint8_t*>(to.data()), size);
    };
#else
    const auto sizeOf = [&] {
        return JxlDecoderGetICCProfileSize(decoder, &kPixels, JXL_COLOR_PROFILE_TARGET_DATA, &size);
    };
    const auto get = [&](QByteArray& to) {
        return JxlDecoderGetColorAsICCProfile(decoder, &kPixels, JXL_COLOR_PROFILE_TARGET_DATA,
                                              reinterpret_cast<std::uint8_t*>(to.data()), size);
    };
#endif
    if (sizeOf() != JXL_DEC_SUCCESS) return {};
    QByteArray profile(static_cast<qsizetype>(size), '\0');
    return get(profile) == JXL_DEC_SUCCESS ? profile : QByteArray();
}

void SwapRedAndBlue(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = (row[x] & 0xff00ff00u) | (row[x] & 0xffu) << 16 | (row[x] >> 16 & 0xffu);
    }
}

// Files that are a sequence of boxes may have some beside the picture's, before or behind it, often compressed.
void Describe(const QByteArray& bytes, kelu::Metadata& metadata) {
    constexpr qsizetype kUsual = 1 << 16;
    constexpr qsizetype kLongest = 1 << 26;  // few bytes can be made to grow without end
    const JxlDecoderPtr decoder = JxlDecoderMake(nullptr);
    JxlDecoder* const jxl = decoder.get();
    JxlDecoderSubscribeEvents(jxl, JXL_DEC_BOX);
    JxlDecoderSetDecompressBoxes(jxl, JXL_TRUE);
    JxlDecoderSetInput(jxl, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                       static_cast<std::size_t>(bytes.size()));
    JxlDecoderCloseInput(jxl);
    QByteArray box;
    QByteArrayView name;
    const auto letInto = [&](qsizetype from, qsizetype size) {
        box.resize(size);
        JxlDecoderSetBoxBuffer(jxl, reinterpret_cast<std::uint8_t*>(box.data()) + from,
                               static_cast<std::size_t>(size - from));
    };
    for (JxlBoxType type{};;) {
        const JxlDecoderStatus status = JxlDecoderProcessInput(jxl);
        const qsizetype filled = box.size() - static_cast<qsizetype>(JxlDecoderReleaseBoxBuffer(jxl));
        if (status == JXL_DEC_BOX_NEED_MORE_OUTPUT && filled < kLongest) {
            letInto(filled, 2 * box.size());
            continue;
        }
        if (status != JXL_DEC_BOX && status != JXL_DEC_SUCCESS) return;
        box.truncate(filled);
        if (name == "Exif") metadata.exif = kelu::ExifOfBox(box);
        if (name == "xml ") metadata.xmp = box;
        if (status == JXL_DEC_SUCCESS || JxlDecoderGetBoxType(jxl, type, JXL_TRUE) != JXL_DEC_SUCCESS) return;
        name = QByteArrayView(type, sizeof type);
        box.clear();
        if (name == "Exif" || name == "xml ") letInto(0, kUsual);
    }
}

// The library ends the program where it finds no memory, so what it takes is asked for before, and given back.
void CheckMemory(const JxlBasicInfo& info) {
    constexpr std::size_t kBytesOfPixel = 24, kBytesBeside = 24u << 20;  // seen: 21 a pixel of a lossless file
    void* volatile room = std::malloc(std::size_t{info.xsize} * info.ysize * kBytesOfPixel + kBytesBeside);
    if (!room) throw std::bad_alloc();
    std::free(room);
}

}  // namespace

extern "C" Q_DECL_EXPORT void KeluDecode(const QByteArray& bytes, const kelu::CodecHost& host, QImage& image,
                                         kelu::Metadata& metadata) {
    const kelu::QuietStandardError quiet;
    const JxlThreadParallelRunnerPtr runner =
        JxlThreadParallelRunnerMake(nullptr, JxlThreadParallelRunnerDefaultNumWorkerThreads());
    const JxlDecoderPtr decoder = JxlDecoderMake(nullptr);
    JxlDecoder* const jxl = decoder.get();
    JxlDecoderSetParallelRunner(jxl, JxlThreadParallelRunner, runner.get());
    JxlDecoderSubscribeEvents(jxl, JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING | JXL_DEC_FULL_IMAGE);
    JxlDecoderSetUnpremultiplyAlpha(jxl, JXL_TRUE);
    JxlDecoderSetInput(jxl, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                       static_cast<std::size_t>(bytes.size()));
    // The input is not closed, so that a file which is cut short is told from a damaged one.
    JxlBasicInfo info{};
    for (;;) {
        switch (JxlDecoderProcessInput(jxl)) {
            case JXL_DEC_BASIC_INFO:
                if (JxlDecoderGetBasicInfo(jxl, &info) != JXL_DEC_SUCCESS) host.throwDamaged();
                host.checkSize(info.xsize, info.ysize);
                CheckMemory(info);
                break;
            case JXL_DEC_COLOR_ENCODING:
                metadata.profile = Profile(jxl);
                break;
            case JXL_DEC_NEED_IMAGE_OUT_BUFFER:
                image = host.makePicture(static_cast<int>(info.xsize), static_cast<int>(info.ysize),
                                         info.alpha_bits > 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
                JxlDecoderSetImageOutBuffer(jxl, &kPixels, image.bits(), static_cast<std::size_t>(image.sizeInBytes()));
                break;
            case JXL_DEC_FULL_IMAGE:  // of an animation the first
                SwapRedAndBlue(image);
                Describe(bytes, metadata);
                return;
            case JXL_DEC_NEED_MORE_INPUT:
                host.throwCutShort();
                break;  // never got to
            default:
                host.throwDamaged();
        }
    }
}
