// The first frame of a GIF, by giflib.
// SPDX-License-Identifier: MIT
#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "pictures/picture.h"
#include "pictures/picture_decoders.h"
#include "platform/error.h"

namespace kelu {
namespace {

struct Input {
    const QByteArray& bytes;
    qsizetype at = 0;
};

class GifDecoder {
 public:
    explicit GifDecoder(const QByteArray& bytes) : input_{bytes} {
        int error = 0;
        gif_ = DGifOpen(&input_, &GifDecoder::Read, &error);
        if (!gif_) Fail(error);
    }
    ~GifDecoder() { DGifCloseFile(gif_, nullptr); }
    GifDecoder(const GifDecoder&) = delete;
    GifDecoder& operator=(const GifDecoder&) = delete;

    QImage FirstFrame() {
        QImage frame;
        for (GifRecordType record = UNDEFINED_RECORD_TYPE; record != TERMINATE_RECORD_TYPE;) {
            Check(DGifGetRecordType(gif_, &record));
            if (record == EXTENSION_RECORD_TYPE)
                ReadExtension();
            else if (record == IMAGE_DESC_RECORD_TYPE)
                frame.isNull() ? void(frame = ReadFrame()) : SkipFrame();
        }
        // The walk goes on to the trailer: a file without one is cut short.
        if (frame.isNull()) ThrowDamaged();
        return frame;
    }

 private:
    static int Read(GifFileType* gif, GifByteType* to, int count) {
        auto* input = static_cast<Input*>(gif->UserData);
        const auto left = std::min<qsizetype>(count, input->bytes.size() - input->at);
        std::memcpy(to, input->bytes.constData() + input->at, static_cast<std::size_t>(left));
        input->at += left;
        return static_cast<int>(left);
    }

    [[noreturn]] void Fail(int error) const {
        if (error == D_GIF_ERR_NOT_ENOUGH_MEM) ThrowNoMemory();
        if (input_.at >= input_.bytes.size()) ThrowCutShort();
        ThrowDamaged();
    }
    void Check(int result) const {
        if (result != GIF_OK) Fail(gif_->Error);
    }

    void ReadExtension() {
        int code = 0;
        GifByteType* block = nullptr;
        Check(DGifGetExtension(gif_, &code, &block));
        GraphicsControlBlock control;
        if (code == GRAPHICS_EXT_FUNC_CODE && block && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
            transparent_ = control.TransparentColor;
        while (block) Check(DGifGetExtensionNext(gif_, &block));
    }

    QImage ReadFrame() {
        Check(DGifGetImageDesc(gif_));
        const GifImageDesc& place = gif_->Image;
        const QRect frame(place.Left, place.Top, place.Width, place.Height);
        QSize screen(gif_->SWidth, gif_->SHeight);
        if (screen.isEmpty()) screen = QSize(frame.right() + 1, frame.bottom() + 1);
        CheckPictureSize(screen.width(), screen.height());
        CheckPictureSize(frame.width(), frame.height());
        const std::array<QRgb, 256> palette = Palette();
        const bool opaque = transparent_ < 0 && frame.contains(QRect(QPoint(0, 0), screen));
        QImage image =
            MakePicture(screen.width(), screen.height(), opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32);
        if (!opaque) image.fill(0u);
        std::vector<GifPixelType> line(static_cast<std::size_t>(place.Width));
        const auto readLine = [&](int row) {
            Check(DGifGetLine(gif_, line.data(), place.Width));
            const int y = frame.top() + row;
            if (y >= screen.height()) return;
            auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
            const int end = std::min(place.Width, screen.width() - frame.left());
            for (int x = 0; x < end; ++x) out[frame.left() + x] = palette[line[static_cast<std::size_t>(x)]];
        };
        if (place.Interlace) {
            constexpr std::array<std::array<int, 2>, 4> kPasses{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
            for (const auto& [begin, step] : kPasses)
                for (int row = begin; row < place.Height; row += step) readLine(row);
        } else {
            for (int row = 0; row < place.Height; ++row) readLine(row);
        }
        return image;
    }

    std::array<QRgb, 256> Palette() const {
        std::array<QRgb, 256> palette;
        palette.fill(0xff000000u);
        const ColorMapObject* map = gif_->Image.ColorMap ? gif_->Image.ColorMap : gif_->SColorMap;
        if (map) {
            for (int i = 0; i < std::min(map->ColorCount, 256); ++i) {
                const GifColorType& color = map->Colors[i];
                palette[static_cast<std::size_t>(i)] = qRgb(color.Red, color.Green, color.Blue);
            }
        }
        if (transparent_ >= 0 && transparent_ < 256) palette[static_cast<std::size_t>(transparent_)] = 0;
        return palette;
    }

    void SkipFrame() {
        Check(DGifGetImageDesc(gif_));
        int size = 0;
        GifByteType* block = nullptr;
        Check(DGifGetCode(gif_, &size, &block));
        while (block) Check(DGifGetCodeNext(gif_, &block));
    }

    Input input_;
    GifFileType* gif_ = nullptr;
    int transparent_ = NO_TRANSPARENT_COLOR;
};

}  // namespace

DecodedPicture DecodeGif(PictureInput& input) { return {GifDecoder(input.Bytes()).FirstFrame()}; }

}  // namespace kelu
