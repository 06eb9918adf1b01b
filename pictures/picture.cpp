// Pictures on pooled memory, and the plain changes of a whole picture.
// SPDX-License-Identifier: MIT
#include "pictures/picture.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "engine/bands.h"
#include "engine/pixel_memory.h"
#include "pictures/area_scaler.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"

namespace kelu {
namespace {

std::int64_t maxPixels = std::int64_t{1} << 28;

void CopyAttributes(const QImage& from, QImage& to) {
    to.setDotsPerMeterX(from.dotsPerMeterX());
    to.setDotsPerMeterY(from.dotsPerMeterY());
}

Error LackOfMemoryFor(const QSize& size) {
    return {kOutOfMemory,
            PictureTexts::tr("Not enough memory for a picture of %1 x %2 pixels").arg(size.width()).arg(size.height())};
}

/// What the toolkit has made: it tells a lack of memory by making none.
QImage Had(const QImage& made, const QSize& size) { return made.isNull() ? throw LackOfMemoryFor(size) : made; }

// Where the pixel (0, 0) of the source goes and how its row and column directions run in the target: one row per
// EXIF orientation.
struct Turn {
    bool swapsSides, flipX, flipY;
};
constexpr Turn kTurns[9] = {{false, false, false}, {false, false, false}, {false, true, false},
                            {false, true, true},   {false, false, true},  {true, false, false},
                            {true, true, false},   {true, true, true},    {true, false, true}};

}  // namespace

std::int64_t MaxPicturePixels() { return maxPixels; }

void SetMaxPicturePixels(std::int64_t pixels) { maxPixels = pixels; }

void CheckPictureSize(std::int64_t width, std::int64_t height) {
    if (width < 1 || height < 1) throw Error(kInvalidPicture, PictureTexts::tr("The picture has no pixels"));
    // Both factors are below 2^32 in every file format read here, so the product fits.
    if (width > maxPixels || height > maxPixels || width * height > maxPixels)
        throw Error(kOutOfMemory, PictureTexts::tr("The picture is too large: %1 x %2 pixels").arg(width).arg(height));
}

QImage MakePicture(int width, int height, QImage::Format format) {
    CheckPictureSize(width, height);
    const auto stride = static_cast<std::size_t>(width) * 4;
    try {
        auto* memory =
            new std::shared_ptr<std::uint8_t>(engine::TakePixelMemory(stride * static_cast<std::size_t>(height)));
        return QImage(
            memory->get(), width, height, static_cast<qsizetype>(stride), format,
            [](void* owned) { delete static_cast<std::shared_ptr<std::uint8_t>*>(owned); }, memory);
    } catch (const std::bad_alloc&) {
        throw LackOfMemoryFor({width, height});
    }
}

QImage CopyPicture(const QImage& picture) {
    QImage copy = MakePicture(picture.width(), picture.height(), picture.format());
    const auto bytes = static_cast<std::size_t>(picture.width()) * 4;
    const uchar* from = picture.constBits();
    uchar* to = copy.bits();
    const qsizetype fromStride = picture.bytesPerLine();
    const qsizetype toStride = copy.bytesPerLine();
    engine::SplitRows({}, picture.height(), picture.width(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) std::memcpy(to + y * toStride, from + y * fromStride, bytes);
    });
    CopyAttributes(picture, copy);
    return copy;
}

void MakeUnique(QImage& picture) {
    if (!picture.isNull() && !picture.isDetached()) picture = CopyPicture(picture);
}

QImage ToPictureFormat(const QImage& image) {
    if (image.isNull() || image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32)
        return image;
    return Had(image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32),
               image.size());
}

void MakeOpaque(QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::for_each(row, row + picture.width(), [](QRgb& pixel) { pixel |= 0xff000000u; });
    }
}

void DropIdleAlpha(QImage& picture) {
    QRgb any = 0;
    QRgb all = 0xff000000u;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            any |= row[x];
            all &= row[x];
        }
    }
    const bool clear = (any & 0xff000000u) == 0;
    if (!clear && all != 0xff000000u) return;
    if (clear) MakeOpaque(picture);
    picture.reinterpretAsFormat(QImage::Format_RGB32);
}

QImage Orient(const QImage& picture, int orientation) {
    if (orientation < 2 || orientation > 8 || picture.isNull()) return picture;
    const Turn turn = kTurns[orientation];
    const int width = turn.swapsSides ? picture.height() : picture.width();
    const int height = turn.swapsSides ? picture.width() : picture.height();
    QImage target = MakePicture(width, height, picture.format());
    const uchar* from = picture.constBits();
    uchar* to = target.bits();
    const qsizetype fromStride = picture.bytesPerLine();
    const qsizetype toStride = target.bytesPerLine();
    // Blocks keep both the rows read and the rows written in the cache.
    constexpr int kBlock = 32;
    const auto turnRows = [&](int begin, int end) {
        for (int top = begin; top < end; top += kBlock) {
            const int bottom = std::min(top + kBlock, end);
            for (int left = 0; left < width; left += kBlock) {
                const int right = std::min(left + kBlock, width);
                for (int y = top; y < bottom; ++y) {
                    auto* row = reinterpret_cast<std::uint32_t*>(to + y * toStride);
                    const int b = turn.flipY ? height - 1 - y : y;
                    for (int x = left; x < right; ++x) {
                        const int a = turn.flipX ? width - 1 - x : x;
                        const int sx = turn.swapsSides ? b : a;
                        const int sy = turn.swapsSides ? a : b;
                        row[x] = reinterpret_cast<const std::uint32_t*>(from + sy * fromStride)[sx];
                    }
                }
            }
        }
    };
    engine::SplitRows({}, height, width, turnRows, 4 * kBlock);
    target.setDotsPerMeterX(turn.swapsSides ? picture.dotsPerMeterY() : picture.dotsPerMeterX());
    target.setDotsPerMeterY(turn.swapsSides ? picture.dotsPerMeterX() : picture.dotsPerMeterY());
    return target;
}

QImage ScalePicture(const QImage& picture, const QSize& size) {
    CheckPictureSize(size.width(), size.height());
    if (picture.isNull() || picture.size() == size) return picture;
    const bool shrinks = size.width() <= picture.width() && size.height() <= picture.height();
    if (!shrinks) {
        QImage grown =
            ToPictureFormat(Had(picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), size));
        CopyAttributes(picture, grown);
        return grown;
    }
    const bool transparent = picture.hasAlphaChannel();
    QImage target = MakePicture(size.width(), size.height(),
                                transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    ScaleArea(picture, size, QRect(QPoint(0, 0), size), target, QPoint(0, 0));
    if (transparent) target.convertTo(QImage::Format_ARGB32);
    CopyAttributes(picture, target);
    return target;
}

}  // namespace kelu
