// The brush: arms it after a render and turns mouse events on the canvas into strokes.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPoint>
#include <functional>

#include "canvas/surface_view.h"
#include "document/document.h"
#include "document/settings.h"
#include "document/shared_state.h"

namespace kelu {

struct BrushCursor {
    QPixmap picture;
    QPoint hotSpot;
};

/// The cursors of the styles "1", "2" and "3".
struct BrushCursors {
    BrushCursor picBrush;
    BrushCursor picSmudge;
    BrushCursor picCross;
};

class Painter {
 public:
    /// `brushSize` reads the diameter of the brush in image pixels, 1 to 100, at the moment of use.
    Painter(Document& document, SurfaceView& canvasView, SharedState& state, const Settings& settings,
            BrushCursors cursors, std::function<int()> brushSize);

    /// Makes the brush from the pen's picture at the present size and shows the cursor of the chosen style. A style
    /// other than "1" to "3" leaves brush and cursor as they were. Called after each render and when the size changes.
    void SetUpBrush();
    /// The ring of the brush's size shows round the pointer while painting is on.
    void ShowBrushRing();

    /// Any mouse button was pressed on the canvas: one undo level, nothing painted.
    void Press(const QPoint& imagePixel);
    /// The pointer moved over the canvas; with the left button alone one segment is painted.
    void Move(Qt::MouseButtons buttons, const QPoint& imagePixel);

 private:
    Document& document_;
    SurfaceView& canvasView_;
    SharedState& state_;
    const Settings& settings_;
    BrushCursors cursors_;
    std::function<int()> brushSize_;
    QPoint lastBrush_;  // image pixels, the end of the last segment
};

}  // namespace kelu
