// The brush: arms it after a render and turns mouse events on the canvas into strokes of the render, or of the
// original.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QPixmap>
#include <QPoint>
#include <functional>
#include <optional>

#include "canvas/surface_view.h"
#include "document/document.h"
#include "document/settings.h"
#include "document/shared_state.h"
#include "platform/notes.h"

namespace kelu {

struct BrushCursor {
    QPixmap picture;
    QPoint hotSpot;
};

struct BrushCursors {
    BrushCursor picBrush;
    BrushCursor picSmudge;
    BrushCursor picCross;

    const BrushCursor& Of(CursorStyle style) const {
        return style == CursorStyle::Smudge ? picSmudge : style == CursorStyle::Cross ? picCross : picBrush;
    }
};

inline constexpr int kSmallestBrush = 1;
inline constexpr int kLargestBrush = 100;
/// The size one step larger (`direction` 1) or smaller (-1), about a tenth, so that all steps feel alike.
int SteppedBrushSize(int size, int direction);

class Painter {
    Q_DECLARE_TR_FUNCTIONS(Painter)

 public:
    /// `brushSize` reads the diameter of the brush in image pixels, 1 to 100, at the moment of use. `tellSaved` is for
    /// who paints on a picture that is saved: only one that is opened again takes more than the brush.
    Painter(Document& document, SurfaceView& canvasView, SharedState& state, const Settings& settings, Notes& notes,
            BrushCursors cursors, std::function<int()> brushSize, std::function<void()> tellSaved,
            SessionLog& log = SessionLog::None());

    /// Makes the brush from the pen's picture at the present size and shows the cursor of the chosen style. An
    /// unknown style leaves brush and cursor as they were. Called after each render and when the size changes.
    void SetUpBrush();
    /// The brush shows round the pointer while painting is on, with the render under it.
    void ShowBrushTip();
    /// Another picture is in the document: no straight line goes on from the last one's strokes.
    void PictureOpened();

    /// Any mouse button was pressed on the canvas: one undo level, nothing painted. With Ctrl the strokes that follow
    /// bring the original back, which needs no render; with Shift a straight line is drawn from the last point, where a
    /// stroke ended or the button was pressed. Without a render a note says what is missing.
    void Press(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, const QPoint& imagePixel);
    /// The pointer moved over the canvas; with the left button alone one segment is painted.
    void Move(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, const QPoint& imagePixel);

    /// What is held while no button is: with Ctrl the ring shows that a press would bring the original back.
    void Hover(Qt::KeyboardModifiers modifiers);
    /// The share of the brush's size that a pen's pressure leaves, 0 to 1; 1 at first and for everything but a pen.
    void SetPressure(double share);

    /// 0: a hard edge, to 100.
    int Softness() const { return softness_; }
    void SetSoftness(int percent);

    enum class Paint { Render, Original };
    /// Lays the paint on the whole picture as one undo level; where that changes nothing there is none.
    void PaintEverywhere(Paint paint);

 private:
    bool CanPaint(Paint paint) const;
    int PressedSize() const;
    void TakeBrush(Paint paint);
    void LogBrush();
    void Segment(const QPoint& from, const QPoint& to);
    /// Tells what is missing, or that there is more to do than to paint.
    bool MayPaint(Paint paint);

    Document& document_;
    SurfaceView& canvasView_;
    SharedState& state_;
    const Settings& settings_;
    Notes& notes_;
    BrushCursors cursors_;
    std::function<int()> brushSize_;
    std::function<void()> tellSaved_;
    SessionLog& log_;
    BrushHandle render_;              ///< the brush made of the last render
    Paint taken_ = Paint::Render;     ///< what the canvas's brush paints now
    Paint hovering_ = Paint::Render;  ///< what a press would paint
    int softness_ = 0;
    int size_ = 0;                     ///< of the brush that was taken, under full pressure
    double pressure_ = 1;              ///< share of it
    QPoint lastBrush_;                 ///< image pixels, where the pointer was last
    std::optional<QPoint> lineStart_;  ///< image pixels, the last point pressed or painted
};

}  // namespace kelu
