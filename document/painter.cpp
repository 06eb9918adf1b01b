// SPDX-License-Identifier: MIT
#include "document/painter.h"

#include "platform/units.h"

namespace kelu {

namespace {
constexpr int kCustomCursor = 99;
constexpr int kFullStrength = 255;
}  // namespace

Painter::Painter(Document& document, ImageX& canvasView, SharedState& state, const Settings& settings,
                 BrushCursors cursors, std::function<int()> brushSize)
    : document_(document), canvasView_(canvasView), state_(state), settings_(settings), cursors_(std::move(cursors)),
      brushSize_(std::move(brushSize)) {}

void Painter::SetUpBrush() {
    const QString style = settings_.Read(settings::kCursorStyle);
    const theme::CursorPicture* cursor = style == u"1"   ? &cursors_.picBrush
                            : style == u"2" ? &cursors_.picSmudge
                            : style == u"3" ? &cursors_.picCross
                                            : nullptr;
    if (!cursor) return;
    const int size = brushSize_();
    document_.Canvas().SelectBrush(document_.Pen().MakeBrush(size));
    document_.Canvas().SetBrushSize(size);
    canvasView_.SetCursorPicture(cursor->pixmap, cursor->hotSpot);
    canvasView_.SetCursorStyle(kCustomCursor);
    ShowBrushRing();
}

void Painter::ShowBrushRing() { canvasView_.SetBrushRing(state_.EffectReady ? brushSize_() : 0); }

QPoint Painter::ImagePoint(int xTwips, int yTwips) const {
    return {canvasView_.ScreenToImageX(TwipsToPixels(xTwips)), canvasView_.ScreenToImageY(TwipsToPixels(yTwips))};
}

void Painter::Press(int xTwips, int yTwips) {
    if (!state_.EffectReady) return;
    document_.Canvas().PushUndo();
    state_.ImageDirty = true;
    lastBrush_ = ImagePoint(xTwips, yTwips);
}

void Painter::Move(Qt::MouseButtons buttons, int xTwips, int yTwips) {
    if (!state_.EffectReady) return;
    const QPoint point = ImagePoint(xTwips, yTwips);
    if (buttons == Qt::LeftButton) {
        document_.Canvas().DrawBrushLine(lastBrush_.x(), lastBrush_.y(), point.x(), point.y(), kFullStrength);
        state_.ImageDirty = true;
    }
    lastBrush_ = point;
}

}  // namespace kelu
