// Drawing and disposal of frames.
// SPDX-License-Identifier: MIT
#include "pictures/gif/frame_composer.h"

#include <cstring>

namespace kelu {
namespace {

constexpr QRgb kBlack = 0xFF000000;

QRect RectOf(const GifFrame& frame) { return {frame.Left, frame.Top, frame.Width, frame.Height}; }

QRgb* PixelsAt(QImage& canvas, const QRect& rect, int row) {
    return reinterpret_cast<QRgb*>(canvas.scanLine(rect.top() + row)) + rect.left();
}

}  // namespace

void FrameComposer::Reset() {
    canvas_ = QImage();
    saved_ = QImage();
    shown_ = 0;
}

QImage FrameComposer::Compose(int frame) {
    if (frame < 1 || frame > strip_.FrameCount()) return QImage();
    if (frame < shown_) shown_ = 0;
    while (shown_ < frame) {
        if (shown_ == 0) {
            Begin();
        } else {
            Dispose(shown_);
        }
        if (canvas_.isNull()) return canvas_;
        Draw(++shown_);
    }
    return canvas_;
}

void FrameComposer::Begin() {
    if (canvas_.isNull()) {
        canvas_ = QImage(strip_.ScreenWidth(), strip_.ScreenHeight(), QImage::Format_ARGB32_Premultiplied);
    }
    if (!canvas_.isNull()) canvas_.fill(strip_.NeedMask() ? QRgb{0} : kBlack);
}

void FrameComposer::Draw(int frame) {
    const GifFrame& description = strip_.Frame(frame);
    const QRect rect = RectOf(description);
    if (description.Disposal == 3) saved_ = canvas_.copy(rect);
    const QImage& indices = strip_.Indices(frame);
    if (indices.isNull()) return;
    const auto colours = strip_.DrawingColours(frame);
    for (int row = 0; row < rect.height(); ++row) {
        const uchar* from = indices.constScanLine(row);
        QRgb* to = PixelsAt(canvas_, rect, row);
        for (int x = 0; x < rect.width(); ++x) {
            const QRgb colour = colours[from[x]];
            to[x] = colour != 0 ? colour : to[x];
        }
    }
}

void FrameComposer::Dispose(int frame) {
    const GifFrame& description = strip_.Frame(frame);
    const QRect rect = RectOf(description);
    if (description.Disposal < 2 || rect.isEmpty()) return;
    const std::size_t rowBytes = static_cast<std::size_t>(rect.width()) * sizeof(QRgb);
    for (int row = 0; row < rect.height(); ++row) {
        QRgb* to = PixelsAt(canvas_, rect, row);
        if (description.Disposal == 2) {
            std::memset(to, 0, rowBytes);
        } else if (!saved_.isNull()) {
            std::memcpy(to, saved_.constScanLine(row), rowBytes);
        }
    }
    saved_ = QImage();
}

}  // namespace kelu
