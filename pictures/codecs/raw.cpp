// Camera RAW by the preview that the camera put into the file, found by LibRaw. The raw data is left alone.
// SPDX-License-Identifier: MIT
#include <libraw/libraw.h>

#include <memory>

#include "pictures/codec_module.h"
#include "pictures/codecs/quiet_standard_error.h"

namespace {

struct Close {
    void operator()(libraw_data_t* raw) const { libraw_close(raw); }
    void operator()(libraw_processed_image_t* image) const { libraw_dcraw_clear_mem(image); }
};
using Raw = std::unique_ptr<libraw_data_t, Close>;
using Preview = std::unique_ptr<libraw_processed_image_t, Close>;

int Orientation(int flip) {
    switch (flip) {
        case 3:
            return 3;
        case 5:
            return 8;
        case 6:
            return 6;
        default:
            return 1;
    }
}

// Red, green and blue side by side.
void CopyRows(const libraw_processed_image_t& from, QImage& to) {
    const unsigned char* in = from.data;
    for (int y = 0; y < to.height(); ++y) {
        auto* out = reinterpret_cast<QRgb*>(to.scanLine(y));
        for (int x = 0; x < to.width(); ++x, in += 3) out[x] = qRgb(in[0], in[1], in[2]);
    }
}

}  // namespace

/// Leaves the image null for a file without a preview, and for one that is no camera's.
extern "C" Q_DECL_EXPORT void KeluDecode(const QByteArray& bytes, const kelu::CodecHost& host, QImage& image,
                                         kelu::Metadata& metadata) {
    const kelu::QuietStandardError quiet;
    const Raw raw(libraw_init(0));
    if (!raw || libraw_open_buffer(raw.get(), const_cast<char*>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size())) != LIBRAW_SUCCESS)
        return;
    int error = libraw_unpack_thumb(raw.get());
    const Preview preview(error == LIBRAW_SUCCESS ? libraw_dcraw_make_mem_thumb(raw.get(), &error) : nullptr);
    if (!preview) return;
    if (preview->type == LIBRAW_IMAGE_JPEG) {
        host.decodeJpeg(QByteArray::fromRawData(reinterpret_cast<const char*>(preview->data), preview->data_size),
                        image, metadata);
    } else if (preview->colors == 3 && preview->bits == 8 &&
               preview->data_size >= 3u * preview->width * preview->height) {
        image = host.makePicture(preview->width, preview->height, QImage::Format_RGB32);
        CopyRows(*preview, image);
    }
    metadata.orientation = Orientation(raw->sizes.flip);
}
