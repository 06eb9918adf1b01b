// GIF with a palette of the picture's own, by giflib.
// SPDX-License-Identifier: MIT
#include <gif_lib.h>

#include <bit>
#include <memory>

#include "pictures/palette.h"
#include "pictures/picture_encoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

constexpr int kLongestSide = 65535;

struct CloseGif {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
struct FreeMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

int Write(GifFileType* gif, const GifByteType* bytes, int count) {
    return static_cast<int>(static_cast<QIODevice*>(gif->UserData)->write(reinterpret_cast<const char*>(bytes), count));
}

}  // namespace

void EncodeGif(const QImage& picture, const WriteOptions&, QIODevice& device) {
    const auto check = [&](bool well) {
        if (!well) throw Error(kFileError, device.errorString(), QStringLiteral("WritePicture"));
    };
    if (picture.width() > kLongestSide || picture.height() > kLongestSide)
        throw Error(kFileError, PictureTexts::tr("The picture is too large for a GIF file"),
                    QStringLiteral("WritePicture"));
    PalettePicture reduced = ReduceColors(picture);
    // The format wants a power of two.
    const auto count = static_cast<int>(std::bit_ceil(std::max<std::size_t>(reduced.colors.size(), 2)));
    const std::unique_ptr<ColorMapObject, FreeMap> map(GifMakeMapObject(count, nullptr));
    if (!map) throw std::bad_alloc();
    for (std::size_t i = 0; i < reduced.colors.size(); ++i) {
        const QRgb color = reduced.colors[i];
        map->Colors[i] = {static_cast<GifByteType>(qRed(color)), static_cast<GifByteType>(qGreen(color)),
                          static_cast<GifByteType>(qBlue(color))};
    }
    int error = 0;
    std::unique_ptr<GifFileType, CloseGif> gif(EGifOpen(&device, &Write, &error));
    if (!gif) throw std::bad_alloc();
    EGifSetGifVersion(gif.get(), reduced.transparent >= 0);
    check(EGifPutScreenDesc(gif.get(), picture.width(), picture.height(), 8, 0, map.get()) == GIF_OK);
    if (reduced.transparent >= 0) {
        const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, reduced.transparent};
        GifByteType extension[4];
        EGifGCBToExtension(&control, extension);
        check(EGifPutExtension(gif.get(), GRAPHICS_EXT_FUNC_CODE, 4, extension) == GIF_OK);
    }
    check(EGifPutImageDesc(gif.get(), 0, 0, picture.width(), picture.height(), false, nullptr) == GIF_OK);
    GifPixelType* row = reduced.indexes.data();
    for (int y = 0; y < picture.height(); ++y, row += picture.width())
        check(EGifPutLine(gif.get(), row, picture.width()) == GIF_OK);
    check(EGifCloseFile(gif.release(), nullptr) == GIF_OK);
}

}  // namespace kelu
