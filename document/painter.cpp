// SPDX-License-Identifier: MIT
#include "document/painter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "document/commands.h"

namespace kelu {

namespace {
constexpr int kFullStrength = 255;
}  // namespace

int SteppedBrushSize(int size, int direction) {
    // Down by an eleventh undoes a tenth up.
    const double step = direction > 0 ? size / 10.0 : -size / 11.0;
    return std::clamp(size + direction * std::max(1, qRound(std::abs(step))), kSmallestBrush, kLargestBrush);
}

Painter::Painter(Document& document, SurfaceView& canvasView, SharedState& state, const Settings& settings,
                 Notes& notes, BrushCursors cursors, std::function<int()> brushSize, std::function<void()> tellSaved,
                 SessionLog& log)
    : document_(document),
      canvasView_(canvasView),
      state_(state),
      settings_(settings),
      notes_(notes),
      cursors_(std::move(cursors)),
      brushSize_(std::move(brushSize)),
      tellSaved_(std::move(tellSaved)),
      log_(log) {}

void Painter::SetUpBrush() {
    const std::optional<CursorStyle> style = settings_.Read(settings::kCursorStyle);
    if (!style) return;
    render_ = document_.Pen().MakeBrush(brushSize_());
    TakeBrush(Paint::Render);
    const BrushCursor& cursor = cursors_.Of(*style);
    canvasView_.SetCursorPicture(cursor.picture, cursor.hotSpot);
    canvasView_.SetCursorStyle(SurfaceCursor::Custom);
    ShowBrushTip();
}

void Painter::PictureOpened() {
    lineStart_.reset();
    ShowBrushTip();
}

void Painter::ShowBrushTip() {
    BrushTip tip;
    if (CanPaint(hovering_)) {
        tip.size = brushSize_();
        tip.softness = softness_;
        tip.restores = hovering_ == Paint::Original;
        tip.paint = tip.restores ? document_.Original().Picture() : render_.paint;
    }
    canvasView_.SetBrushTip(tip);
}

bool Painter::CanPaint(Paint paint) const {
    if (paint == Paint::Render) return state_.EffectReady;
    // The canvas as it was opened has nothing to bring back.
    return !document_.Canvas().Picture().isNull() &&
           document_.Canvas().Picture().constBits() != document_.Original().Picture().constBits();
}

int Painter::PressedSize() const { return std::max(1, qRound(size_ * pressure_)); }

void Painter::TakeBrush(Paint paint) {
    size_ = brushSize_();
    const int size = PressedSize();
    taken_ = paint;
    document_.Canvas().SelectBrush(paint == Paint::Render ? render_ : document_.Original().MakeBrush(size));
    document_.Canvas().SetBrushSize(size);
    document_.Canvas().SetBrushSoftness(softness_);
    LogBrush();
}

void Painter::LogBrush() {
    const bool isPens = render_.paint.constBits() == document_.Pen().Picture().constBits();
    log_.BrushTaken(taken_ == Paint::Original ? BrushSource::Original
                    : isPens                  ? BrushSource::Pen
                                              : BrushSource::Render,
                    document_.Canvas().Brush());
}

void Painter::Segment(const QPoint& from, const QPoint& to) {
    document_.Canvas().DrawBrushLine(from.x(), from.y(), to.x(), to.y(), kFullStrength);
    log_.LinePainted(from, to);
    state_.ImageDirty = true;
    lineStart_ = to;
}

void Painter::Press(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, const QPoint& imagePixel) {
    const Paint paint = modifiers & Qt::ControlModifier ? Paint::Original : Paint::Render;
    if (!MayPaint(paint)) return;
    // The original may be another one by now.
    if (paint != taken_ || paint == Paint::Original) TakeBrush(paint);
    document_.Canvas().PushUndo();
    state_.ImageDirty = true;
    lastBrush_ = imagePixel;
    log_.StrokeBegan(imagePixel);
    if (buttons != Qt::LeftButton) return;
    if ((modifiers & Qt::ShiftModifier) && lineStart_) Segment(*lineStart_, imagePixel);
    lineStart_ = imagePixel;
}

bool Painter::MayPaint(Paint paint) {
    const bool can = CanPaint(paint);
    const Obstacle obstacle = ObstacleTo(Command::Print, state_);
    if (obstacle == Obstacle::Saved)
        tellSaved_();
    else if (can || obstacle == Obstacle::Capture)
        return can;
    else if (obstacle == Obstacle::NoPicture)
        notes_.Show({ObstacleText(obstacle)});
    else if (paint == Paint::Original)
        notes_.Show({ObstacleText(Obstacle::NoChanges)});
    else
        notes_.Show({tr("Nothing painted yet: choose an effect, Apply, then brush")});
    return can;
}

void Painter::Move(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, const QPoint& imagePixel) {
    if (buttons == Qt::NoButton) Hover(modifiers);
    if (!CanPaint(taken_)) return;
    if (buttons == Qt::LeftButton) Segment(lastBrush_, imagePixel);
    lastBrush_ = imagePixel;
}

void Painter::Hover(Qt::KeyboardModifiers modifiers) {
    const Paint paint = modifiers & Qt::ControlModifier ? Paint::Original : Paint::Render;
    if (paint != std::exchange(hovering_, paint)) ShowBrushTip();
}

void Painter::SetPressure(double share) {
    pressure_ = std::clamp(share, 0.0, 1.0);
    const BrushHandle& brush = document_.Canvas().Brush();
    if (size_ == 0 || brush.paint.isNull() || brush.size == PressedSize()) return;
    document_.Canvas().SetBrushSize(PressedSize());
    LogBrush();
}

void Painter::SetSoftness(int percent) {
    softness_ = std::clamp(percent, 0, 100);
    document_.Canvas().SetBrushSoftness(softness_);
    log_.BrushSoftened(softness_);
    ShowBrushTip();
}

void Painter::PaintEverywhere(Paint paint) {
    if (!Enabled(paint == Paint::Render ? Command::PaintAll : Command::RestoreAll, state_)) return;
    if (!MayPaint(paint)) return;
    TakeBrush(paint);
    const QImage before = document_.Canvas().Picture();
    document_.Canvas().PaintAll();
    if (document_.Canvas().Picture().constBits() == before.constBits()) return;
    log_.AllPainted();
    state_.ImageDirty = true;
}

}  // namespace kelu
