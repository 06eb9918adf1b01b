// SPDX-License-Identifier: MIT
#include "document/painter.h"

namespace kelu {

namespace {
constexpr int kCustomCursor = 99;
constexpr int kFullStrength = 255;
}  // namespace

Painter::Painter(Document& document, SurfaceView& canvasView, SharedState& state, const Settings& settings,
                 BrushCursors cursors, std::function<int()> brushSize)
    : document_(document),
      canvasView_(canvasView),
      state_(state),
      settings_(settings),
      cursors_(std::move(cursors)),
      brushSize_(std::move(brushSize)) {}

void Painter::SetUpBrush() {
    const QString style = settings_.Read(settings::kCursorStyle);
    const BrushCursor* cursor = style == u"1"   ? &cursors_.picBrush
                                : style == u"2" ? &cursors_.picSmudge
                                : style == u"3" ? &cursors_.picCross
                                                : nullptr;
    if (!cursor) return;
    const int size = brushSize_();
    document_.Canvas().SelectBrush(document_.Pen().MakeBrush(size));
    document_.Canvas().SetBrushSize(size);
    canvasView_.SetCursorPicture(cursor->picture, cursor->hotSpot);
    canvasView_.SetCursorStyle(kCustomCursor);
    ShowBrushRing();
}

void Painter::ShowBrushRing() { canvasView_.SetBrushRing(state_.EffectReady ? brushSize_() : 0); }

void Painter::Press(const QPoint& imagePixel) {
    if (!state_.EffectReady) return;
    document_.Canvas().PushUndo();
    state_.ImageDirty = true;
    lastBrush_ = imagePixel;
}

void Painter::Move(Qt::MouseButtons buttons, const QPoint& imagePixel) {
    if (!state_.EffectReady) return;
    if (buttons == Qt::LeftButton) {
        document_.Canvas().DrawBrushLine(lastBrush_.x(), lastBrush_.y(), imagePixel.x(), imagePixel.y(), kFullStrength);
        state_.ImageDirty = true;
    }
    lastBrush_ = imagePixel;
}

}  // namespace kelu
