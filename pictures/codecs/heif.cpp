// HEIC and AVIF by libheif. The library turns the pixels as the file says.
// SPDX-License-Identifier: MIT
#include <libheif/heif.h>

#include <QColorSpace>
#include <array>
#include <cstring>
#include <memory>

#include "pictures/codec_module.h"
#include "pictures/codecs/quiet_standard_error.h"

namespace {

template <auto Function>
struct Free {
    template <typename Type>
    void operator()(Type* object) const {
        Function(object);
    }
};
using Context = std::unique_ptr<heif_context, Free<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Free<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Free<heif_image_release>>;
using Options = std::unique_ptr<heif_decoding_options, Free<heif_decoding_options_free>>;
using Nclx = std::unique_ptr<heif_color_profile_nclx, Free<heif_nclx_color_profile_free>>;

void Check(const heif_error& error, const kelu::CodecHost& host) {
    if (error.code == heif_error_Ok) return;
    if (error.subcode == heif_suberror_End_of_data) host.throwCutShort();
    host.throwDamaged();
}

// What phones write that is not sRGB is either a profile or the mark of the Display P3 primaries.
QByteArray Profile(const heif_image_handle* handle) {
    if (const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle)) {
        QByteArray profile(static_cast<qsizetype>(size), '\0');
        if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code == heif_error_Ok) return profile;
    }
    heif_color_profile_nclx* found = nullptr;
    const heif_error error = heif_image_handle_get_nclx_color_profile(handle, &found);
    const Nclx nclx(found);  // also given out, and ours to free, with a value that the library doesn't know
    if (error.code != heif_error_Ok || !nclx) return {};
    const bool displayP3 = nclx->color_primaries == heif_color_primaries_SMPTE_EG_432_1;
    return displayP3 ? QColorSpace(QColorSpace::DisplayP3).iccProfile() : QByteArray();
}

void CopyRows(const heif_image* from, QImage& to) {
    int stride = 0;
    const std::uint8_t* bytes = heif_image_get_plane_readonly(from, heif_channel_interleaved, &stride);
    for (int y = 0; y < to.height(); ++y) {
        const std::uint8_t* in = bytes + std::ptrdiff_t{y} * stride;
        auto* out = reinterpret_cast<QRgb*>(to.scanLine(y));
        for (int x = 0; x < to.width(); ++x, in += 4) out[x] = qRgba(in[0], in[1], in[2], in[3]);
    }
}

// The first block of this kind; empty: none.
QByteArray Block(const heif_image_handle* handle, const char* kind, const char* contentType) {
    std::array<heif_item_id, 16> ids;
    const int count = heif_image_handle_get_list_of_metadata_block_IDs(handle, kind, ids.data(), ids.size());
    for (int i = 0; i < count; ++i) {
        const heif_item_id id = ids[static_cast<std::size_t>(i)];
        if (contentType && std::strcmp(heif_image_handle_get_metadata_content_type(handle, id), contentType) != 0)
            continue;
        QByteArray bytes(static_cast<qsizetype>(heif_image_handle_get_metadata_size(handle, id)), '\0');
        if (heif_image_handle_get_metadata(handle, id, bytes.data()).code == heif_error_Ok) return bytes;
    }
    return {};
}

}  // namespace

extern "C" Q_DECL_EXPORT void KeluDecode(const QByteArray& bytes, const kelu::CodecHost& host, QImage& image,
                                         kelu::Metadata& metadata) {
    const kelu::QuietStandardError quiet;
    const Context context(heif_context_alloc());
    Check(heif_context_read_from_memory_without_copy(context.get(), bytes.constData(),
                                                     static_cast<std::size_t>(bytes.size()), nullptr),
          host);
    heif_image_handle* primary = nullptr;
    Check(heif_context_get_primary_image_handle(context.get(), &primary), host);
    const Handle handle(primary);
    host.checkSize(heif_image_handle_get_width(primary), heif_image_handle_get_height(primary));
    const Options options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    heif_image* decoded = nullptr;
    Check(heif_decode_image(primary, &decoded, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, options.get()), host);
    const Image pixels(decoded);
    const bool transparent = heif_image_handle_has_alpha_channel(primary) != 0;
    const bool multiplied = transparent && heif_image_handle_is_premultiplied_alpha(primary) != 0;
    image = host.makePicture(heif_image_get_width(decoded, heif_channel_interleaved),
                             heif_image_get_height(decoded, heif_channel_interleaved),
                             multiplied    ? QImage::Format_ARGB32_Premultiplied
                             : transparent ? QImage::Format_ARGB32
                                           : QImage::Format_RGB32);
    CopyRows(decoded, image);
    if (multiplied) image.convertTo(QImage::Format_ARGB32);
    metadata.profile = Profile(primary);
    metadata.exif = kelu::ExifOfBox(Block(primary, "Exif", nullptr));
    metadata.xmp = Block(primary, "mime", "application/rdf+xml");
}
